// CHeldHeading.h: a heading that holds while the vehicle stands.
#pragma once

#include "GpsLib/filter/velocity/EastNorth.h"

namespace GPS
{

/// The direction of a velocity that is mostly noise is noise too. One who drives has the receiver's heading,
/// one who creeps that of a mean velocity, one who stands the last one.
/// Thread: one at a time.
class CHeldHeading
{
public:
    /// heading: [deg] to be held until there is a better one.
    void Begin(double heading) noexcept;

    /// heading: [deg] the receiver's. speed: [m/s]. velocity: [m/s]. seconds: since the step before.
    /// Result: [deg] from 0 to 360, or the receiver's own.
    double Step(double heading, double speed, EastNorth velocity, double seconds, bool still) noexcept;

private:
    double held = 0.0; // [deg]
    EastNorth mean;    // [m/s] of the latest second or so
};

} // namespace GPS
