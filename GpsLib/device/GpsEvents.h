// GpsEvents.h: the events of a live receiver, all with a null payload: a handler of one asks the device.
//
// Sent on the reader thread. Every query of the device works from inside any of them; CloseGPS changes
// nothing there.
//
// An event doesn't say which device sent it. With two receivers, ask both devices at each event and go by
// whose record has a new `time`. Epochs without a fix give no record; if those matter, go by the thread: all
// events of one opening come on one thread of its own. Open the second device after the first one's first
// event, and that event's thread is the first's.
#pragma once

#include <cstdint>

/// An epoch has closed, with a fix or without; the device holds it.
constexpr std::uint16_t GPS_EVENT_EPOCH = 1001;
/// The position moved by more than 5e-5 degrees in longitude or latitude since the epoch before.
constexpr std::uint16_t GPS_EVENT_MOVED = 1002;
/// Three epochs without a fix, and more than 60 s since it was lost. Comes again with every such epoch.
/// A new device counts as without a fix since the system started: on a cold start more than 60 s after that,
/// this comes with the first epoch already, if that has no fix.
constexpr std::uint16_t GPS_EVENT_FIX_TIMEOUT = 1003;
/// The epoch about to be taken in has no fix; the device still holds the one before.
constexpr std::uint16_t GPS_EVENT_NO_FIX = 1004;
