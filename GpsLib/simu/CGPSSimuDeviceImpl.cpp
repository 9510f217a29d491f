#include "GpsLib/simu/CGPSSimuDeviceImpl.h"

#include <cmath>
#include <cstring>

#include "GpsLib/contracts/KestMath.h"
#include "GpsLib/math/AngleOf.h"
#include "GpsLib/records/GPSUnits.h"

namespace
{

constexpr double SPEED_MAX = 300.0;              // [km/h]
constexpr double ONE_THIRD = 0.3333333333333333; // weight of the shorter leg
constexpr double RADIANS_TO_DEGREES = 57.29577951308232;
constexpr double FULL_CIRCLE = 6.283185307179586; // [rad]
constexpr double NO_BLOCK_FOLLOWS = -1.0;
constexpr std::uint16_t POINTS_MIN = 2;

/// What a simulated record says it holds; date and time stay zero all the same.
constexpr std::uint32_t SIMU_MASK = GPS_MASK_SPEED | GPS_MASK_TIME | GPS_MASK_DATE | GPS_MASK_POSITION |
                                    GPS_MASK_STATUS | GPS_MASK_HEADING | GPS_MASK_SATUSED;
static_assert(SIMU_MASK == 862);
constexpr std::int32_t SIMU_SATELLITES = 4;

constexpr std::int32_t SEGMENT_GOES_ON = 0;
constexpr std::int32_t SEGMENT_REACHED = 1;
constexpr std::int32_t SEGMENT_BAD = -1;

bool IsWalkable(const PathGuid& block) noexcept
{
    return block.points != nullptr && block.pointCount >= POINTS_MIN;
}

} // namespace

namespace GPS
{

CGPSSimuDeviceImpl::CGPSSimuDeviceImpl() noexcept
    : speed(0.0), stepDistance(0.0), finished(false), path(nullptr), segmentIndex(0), driving(false)
{
    Reset();
}

void CGPSSimuDeviceImpl::SetSpeed(double timeStep, double speed) noexcept
{
    this->speed = speed >= SPEED_MAX ? SPEED_MAX : speed;
    stepDistance = this->speed * KMH_TO_MS * timeStep;
}

/// A cleared block reads as a last one, also for a route that leaves `nextLength` alone.
bool CGPSSimuDeviceImpl::Reset() noexcept
{
    std::memset(&guide, 0, sizeof guide);
    guide.nextLength = NO_BLOCK_FOLLOWS;
    position = {NO_POSITION_LON, NO_POSITION_LAT};
    segmentIndex = 0;
    driving = false;
    return true;
}

bool CGPSSimuDeviceImpl::BeginSimu()
{
    if (speed <= 0.0 || stepDistance <= 0.0) { // what is no number passes, and fails at the first step
        return false;
    }
    Reset();
    if (path == nullptr || path->StartGuid() == 0 || path->NextGuid(guide) == 0 || !IsWalkable(guide)) {
        return false;
    }
    position = guide.points[0];
    segmentIndex = 0;
    finished = false;
    driving = true;
    return true;
}

bool CGPSSimuDeviceImpl::EndSimu() noexcept
{
    finished = false;
    return Reset();
}

std::uint32_t CGPSSimuDeviceImpl::NextStep(_GPS_Data& record)
{
    if (!driving) {
        return STEP_FAILED;
    }
    driving = false; // until the step is made, whatever the route does
    tagLonLat next{};
    if (!Advance(next) || !IsOnEarth(next)) {
        return STEP_FAILED;
    }
    if (finished) {
        next = guide.endPoint;
    }
    FillRecord(next, record);
    position = next;
    driving = !finished;
    return finished ? STEP_ARRIVED : STEP_MADE;
}

/// Moves on to `next`, and to the next block or the drive's end when the current block is used up.
/// Result: false when the route failed.
bool CGPSSimuDeviceImpl::Advance(tagLonLat& next)
{
    const std::uint32_t last = guide.pointCount - 1U;
    if (stepDistance >= guide.blockLength) {
        next = guide.points[last]; // too short to be walked
        return LeaveBlock();
    }
    const std::int32_t result =
        StepSegment(guide.points[segmentIndex], guide.points[segmentIndex + 1], stepDistance, position, next);
    if (result == SEGMENT_REACHED) {
        ++segmentIndex;
        return segmentIndex != last || LeaveBlock();
    }
    return result == SEGMENT_GOES_ON;
}

bool CGPSSimuDeviceImpl::LeaveBlock()
{
    if (guide.nextLength < 0.0) {
        finished = true;
        return true;
    }
    const PathGuid from = guide;
    segmentIndex = 0;
    return path != nullptr && path->GetNextGuid(from, guide) != 0 && IsWalkable(guide);
}

void CGPSSimuDeviceImpl::FillRecord(const tagLonLat& next, _GPS_Data& record) const
{
    ClearRecord(record);
    const double angle = Bearing(position, next);
    record.heading = angle <= 90.0 ? 90.0 - angle : 450.0 - angle;
    record.mask = SIMU_MASK;
    record.valid = 1;
    record.satUsed = SIMU_SATELLITES;
    record.lonLat = next;
    record.speed = speed;
}

/// Moves `distance` metres from `current` towards `end`. The distance left is taken as the longer leg and a
/// third of the shorter, which is 0.943 to 1.054 times the true one and needs no square root.
std::int32_t CGPSSimuDeviceImpl::StepSegment(tagLonLat start, tagLonLat end, double distance,
                                             tagLonLat current, tagLonLat& next)
{
    if (!IsOnEarth(start) || !IsOnEarth(end) || !(distance > 0.0)) {
        return SEGMENT_BAD;
    }
    if (!IsOnEarth(current)) {
        current = start;
    }
    double metresLon = 0.0;
    double metresLat = 0.0;
    GetUnitLength(current, metresLon, metresLat);
    const double dLon = end.lon - current.lon;
    const double dLat = end.lat - current.lat;
    const double a = std::fabs(dLon) * metresLon;
    const double b = std::fabs(dLat) * metresLat;
    const double left = a > b ? a + b * ONE_THIRD : b + a * ONE_THIRD;
    if (left <= distance) {
        next = end;
        return SEGMENT_REACHED;
    }
    const double ratio = distance / left;
    next.lon = current.lon + ratio * dLon;
    next.lat = current.lat + ratio * dLat;
    return SEGMENT_GOES_ON;
}

/// [deg] counter-clockwise from east, above 0 and up to 360: due east gives 360, and so does no distance at
/// all.
double CGPSSimuDeviceImpl::Bearing(const tagLonLat& from, const tagLonLat& to)
{
    double metresLon = 0.0;
    double metresLat = 0.0;
    GetUnitLength(from, metresLon, metresLat);
    const double x = (to.lon - from.lon) * metresLon;
    const double y = (to.lat - from.lat) * metresLat;
    const double angle = AngleOf(y, x);
    return (angle > 0.0 ? angle : angle + FULL_CIRCLE) * RADIANS_TO_DEGREES;
}

} // namespace GPS
