// CVelocityLag.h: how late the receiver's velocity is.
#pragma once

#include "GpsLib/filter/velocity/EastNorth.h"

namespace GPS
{

/// Receivers smooth their velocity, and so deliver one that is up to a second or more old. A point that is
/// reckoned without any lag and drawn gently to the fixes misses them by what a lag would make of each change
/// of velocity; the lag is the least squares fit of the one to the other, learnt over the whole drive.
/// (L. Ljung, System Identification: prediction error methods)
/// Thread: one at a time.
class CVelocityLag
{
public:
    /// Sets the point on the fix. What was learnt stays.
    void Begin() noexcept;

    /// farther: [m] how much farther the fixes went than the velocity says, without lag.
    /// speed: [m/s]. change: [m/s] of the velocity since the step before.
    /// believed: whether the fix is; nothing is learnt from one that isn't.
    /// score: [m2] an axis, how well fixes are foretold: the weight of this one is its inverse.
    void Step(EastNorth farther, double speed, EastNorth change, bool believed, double score) noexcept;

    double Seconds() const noexcept { return lag; }

private:
    double product = 0.0; // of surprises and sensitivities, weighted
    double square = 0.0;  // [1/s2] of sensitivities, weighted
    double lag = 0.0;     // [s]
    EastNorth point;      // [m] from the latest fix
    EastNorth perSecond;  // [m/s] how a lag of 1 s would have moved the point
};

} // namespace GPS
