#include "GpsLib/filter/velocity/CHeldHeading.h"

#include "GpsLib/filter/velocity/CStandstill.h"
#include "GpsLib/math/AngleOf.h"

namespace GPS
{

namespace
{

constexpr double WINDOW = 1.0; // [s] of the mean velocity whose heading is that of one who creeps
constexpr double RADIANS_TO_DEGREES = 57.295779513082323;
constexpr double FULL_CIRCLE = 360.0; // [deg]

/// Result: [deg] clockwise from north, from 0 to 360.
double HeadingOf(EastNorth velocity) noexcept
{
    const double heading = AngleOf(velocity.east, velocity.north) * RADIANS_TO_DEGREES;
    return heading < 0.0 ? heading + FULL_CIRCLE : heading;
}

} // namespace

void CHeldHeading::Begin(double heading) noexcept
{
    held = heading;
    mean = EastNorth();
}

double CHeldHeading::Step(double heading, double speed, EastNorth velocity, double seconds,
                          bool still) noexcept
{
    mean = mean + seconds / (seconds + WINDOW) * (velocity - mean);
    if (speed > CStandstill::SLOW) {
        held = heading;
    } else if (!still && Square(mean) > CStandstill::STILL * CStandstill::STILL) {
        held = HeadingOf(mean);
    }
    return held;
}

} // namespace GPS
