// Pace.h: so many epochs a second, and an ear for the stop signals in between.
#pragma once

#include "tools/StopSignals.h"

namespace kestgps
{

/// Spreads the epochs of a command evenly over time.
class Pace
{
public:
    /// rate: [1/s], 0 for as fast as it goes. signals: borrowed.
    Pace(double rate, StopSignals& signals) noexcept;

    /// Waits until the next epoch is due; the first one is at once. Late epochs are not made up for in a
    /// rush. Result: false when a stop signal came.
    bool AwaitNext();

private:
    StopSignals& signals; // borrowed
    Clock::duration interval;
    Clock::time_point due;
};

} // namespace kestgps
