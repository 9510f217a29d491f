// CStandstill.h: does the vehicle stand?
#pragma once

#include "GpsLib/filter/velocity/EastNorth.h"

namespace GPS
{

/// The velocity of one who stands is noise about 0, that of one who creeps isn't; so its mean since it got
/// slow tells them apart. A speed alone can't: it has no sign, and the mean of noise is above 0.
/// Thread: one at a time.
class CStandstill
{
public:
    /// Whatever is faster surely moves. [m/s]
    static constexpr double SLOW = 0.8;
    /// A mean velocity below it is noise. [m/s]
    static constexpr double STILL = 0.2;

    /// Forgets what was slow.
    void Begin() noexcept { *this = CStandstill(); }

    /// speed: [m/s]. velocity: [m/s]. seconds: since the step before.
    /// Result: whether the vehicle stands.
    bool Step(double speed, EastNorth velocity, double seconds) noexcept;

private:
    double slowFor = 0.0; // [s] up to the window of the mean
    EastNorth mean;       // [m/s]
};

} // namespace GPS
