#include "GpsLib/filter/velocity/CReceiverVelocity.h"

#include <algorithm>

#include "GpsLib/filter/velocity/CStandstill.h"
#include "GpsLib/math/SinCos.h"

namespace GPS
{

namespace
{

constexpr double SPEED_MOST = 1260.0; // [km/h] receivers sold to civilians stop measuring far below
constexpr double FULL_CIRCLE = 360.0; // [deg]
constexpr double BRAKE_MOST = 4.0; // [m/s2] 0.0 and 0.0 after harder braking is a lost sentence, not a stop
constexpr int LOST_MOST = 3;       // in a row; longer than that a stand-in is a guess

// [deg] Unseen, a lost heading that was this near to north leads aside by a third of the way at most. One who
// really came to 0.0 by a sharper turn has another heading an epoch later, and misses little.
constexpr double NORTH_NEAR = 20.0;

constexpr double DEGREES_TO_RADIANS = 0.017453292519943295;
constexpr double KMH_A_MS = 3.6;

/// False for what is no number too.
bool InRange(const _GPS_Data& fix) noexcept
{
    return fix.speed >= 0.0 && fix.speed < SPEED_MOST && fix.heading >= 0.0 && fix.heading <= FULL_CIRCLE;
}

bool IsNearNorth(double heading) noexcept
{
    return std::min(heading, FULL_CIRCLE - heading) <= NORTH_NEAR;
}

} // namespace

bool CReceiverVelocity::Read(_GPS_Data& fix, double seconds) noexcept
{
    if (InRange(fix) && fix.speed > 0.0 && fix.heading > 0.0) {
        seen = true;
        told = fix.heading;
    }
    lost = seen && IsLost(fix, seconds) ? lost + 1 : 0;
    if (lost > LOST_MOST) {
        seen = false;
    }
    if (!seen) {
        return false;
    }
    if (lost > 0) {
        fix.speed = rawSpeed;
        fix.heading = rawHeading;
    }
    rawSpeed = fix.speed;
    rawHeading = fix.heading;
    speed = fix.speed / KMH_A_MS;
    const SinCos direction = QuickSinCosOf(fix.heading * DEGREES_TO_RADIANS);
    const EastNorth before = velocity;
    velocity = speed * EastNorth{direction.sine, direction.cosine};
    change = velocity - before;
    return true;
}

bool CReceiverVelocity::IsLost(const _GPS_Data& fix, double seconds) const noexcept
{
    const bool cleared = fix.speed == 0.0 && fix.heading == 0.0; // as a record is that no sentence wrote to
    // One who is slow may tell no heading, and needs none.
    const bool headless =
        fix.heading == 0.0 && fix.speed > CStandstill::SLOW * KMH_A_MS && !IsNearNorth(told);
    return !InRange(fix) || headless || (cleared && speed > BRAKE_MOST * seconds);
}

} // namespace GPS
