// LinePace.h: when the bytes of a serial line are due.
#pragma once

#include <cstddef>

#include "tools/waiting/PollUntil.h"

namespace kestgps
{

/// How a receiver sends.
struct LineSettings {
    double baudRate = 9600.0; ///< [bit/s] above 0; a byte is 10 bits: start, eight, stop
    double period = 1.0;      ///< [s] from the start of a burst to the next; 0 sends without a pause
    double factor = 1.0;      ///< above 0; 2 does everything in half the time
};

/// Tells when bytes have crossed the line. It reads no clock itself.
class LinePace
{
public:
    /// start: when the first burst begins.
    LinePace(const LineSettings& settings, Clock::time_point start);

    /// Bytes to hand over at a time: what crosses the line in 10 ms, but from 1 to 512.
    std::size_t SliceLength() const noexcept;

    /// The next burst begins a period after the last one, or when the line is free if that is later.
    /// Result: when it begins.
    Clock::time_point BeginBurst() noexcept;

    /// Takes up the line for so many bytes more. Result: when the last of them has crossed.
    Clock::time_point Send(std::size_t bytes) noexcept;

    /// Tells when the bytes were really handed over. A small delay is caught up; after a long one, as when
    /// nobody makes room, everything to come moves by it.
    void HandedOver(Clock::time_point now) noexcept;

private:
    const double byteTime; // [s]
    const Clock::duration period;
    Clock::time_point nextBurst;
    Clock::time_point lineFree;
};

} // namespace kestgps
