// GpsEvents.h: the events of a live receiver, all with a null payload: a receiver of one asks the device.
//
// Sent on the reader thread. Every query of the device works from inside any of them; CloseGPS changes
// nothing there.
#pragma once

#include <cstdint>

/// An epoch has closed, with a fix or without; the device holds it.
constexpr std::uint16_t GPS_EVENT_EPOCH = 1001;
/// The position moved by more than 5e-5 degrees in longitude or latitude since the epoch before.
constexpr std::uint16_t GPS_EVENT_MOVED = 1002;
/// Three epochs without a fix, and more than 60 s since it was lost. Comes again with every such epoch.
constexpr std::uint16_t GPS_EVENT_FIX_TIMEOUT = 1003;
/// The epoch about to be taken in has no fix; the device still holds the one before.
constexpr std::uint16_t GPS_EVENT_NO_FIX = 1004;
