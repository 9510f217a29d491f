// Pace.h: so many epochs a second.
#pragma once

#include "tools/waiting/PollUntil.h"

namespace kestgps
{

/// Spreads the epochs of a command evenly over time.
class Pace
{
public:
    /// rate: [1/s], 0 for as fast as it goes.
    explicit Pace(double rate) noexcept;

    /// Waits until the next epoch is due; the first one is at once. Late epochs are not made up for in a
    /// rush.
    void AwaitNext();

private:
    Clock::duration interval;
    Clock::time_point due;
};

} // namespace kestgps
