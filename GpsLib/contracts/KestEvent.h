// KestEvent.h: what the library needs of the in-house event library.
#pragma once

#include <cstdint>

#include "GpsLib/contracts/KestApi.h"

namespace event
{

/// An event: an id and a payload, which this system always leaves null.
class KEST_API CustomEvent
{
public:
    /// payload: borrowed.
    CustomEvent(std::uint16_t id, void* payload);
    ~CustomEvent(); // NOLINT(performance-trivially-destructible): out of line, the event library's
    CustomEvent(const CustomEvent&) = delete;
    CustomEvent& operator=(const CustomEvent&) = delete;

    /// Result: what kind of event it is.
    std::uint16_t Id() const noexcept;
    /// Result: what it was made with; borrowed.
    void* Payload() const noexcept;

private:
    std::uint16_t id;
    void* payload; // borrowed
};

/// Where events are handed in.
class KEST_API EventHouse
{
public:
    /// Hands the event to the handlers of its id. The library has finished with the object when the call
    /// returns.
    /// event: borrowed for the call.
    /// Thread: any.
    static void SendEvent(CustomEvent* event);
};

} // namespace event
