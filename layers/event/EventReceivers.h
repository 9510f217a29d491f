// EventReceivers.h: how an application gets the events that are sent to the event house.
//
// In the names below a "Receiver" is a handler, the function that takes an event; in the text of this and all
// other headers a receiver is a GPS receiver.
#pragma once

#include <cstdint>
#include <functional>

#include "GpsLib/contracts/KestEvent.h"

namespace event
{

/// A handler. Called with each event of the id that it was registered for, on the thread that sends it: for a
/// receiver's events that is the reader thread, so it should be short. What it throws is dropped; other
/// handlers get the event all the same. The event dies when SendEvent returns.
using Receiver = std::function<void(const CustomEvent& event)>;

/// Names one registration. Never 0, never used twice.
using ReceiverId = std::uint64_t;

/// Registers a handler for one event id, behind those already there: the order of registration is the order
/// of calls. An event that is being delivered doesn't reach it any more.
/// Throws std::bad_alloc; nothing is then registered.
/// Thread: any, also from inside a handler.
KEST_API ReceiverId RegisterReceiver(std::uint16_t id, Receiver handler);

/// Removes a registration. On return the handler isn't running and won't be called again, so what it refers
/// to may be destroyed; called from inside that handler it doesn't wait for it. While it waits the caller
/// must hold nothing that the handler waits for.
/// Result: false when there is no such registration (any more).
/// Thread: any, also from inside a handler.
KEST_API bool RemoveReceiver(ReceiverId registration);

} // namespace event
