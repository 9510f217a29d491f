// CGPSSimuDeviceImpl.h: the walker along a planned route.
#pragma once

#include <cstdint>

#include "GpsLib/contracts/KestRoute.h"
#include "GpsLib/device/CSharers.h"
#include "GpsLib/records/GPSRecords.h"

namespace GPS
{

/// Walks a fixed distance a step along the polyline of the current block, stops on each of its points, and
/// asks the route for the next block when one is used up. A step allocates nothing.
/// Thread: one at a time.
class CGPSSimuDeviceImpl
{
public:
    /// Results of a step.
    static constexpr std::uint32_t STEP_MADE = 0;    // the drive goes on
    static constexpr std::uint32_t STEP_ARRIVED = 1; // the record is the route's end
    static constexpr std::uint32_t STEP_FAILED = 2;  // the record is untouched

    CGPSSimuDeviceImpl() noexcept;

    /// path: borrowed; must outlive the drive. Null is refused by BeginSimu.
    void SetPath(CPath* path) noexcept { this->path = path; }
    /// timeStep: [s]. speed: [km/h], at most 300; more counts as 300. Stored without a further test.
    void SetSpeed(double timeStep, double speed) noexcept;

    /// Starts a drive on the route's first point.
    /// Result: false for a speed or step of 0 or less, which leaves a drive under way as it is; without a
    /// path, or for a route that gives no block of at least two points.
    bool BeginSimu();

    /// Makes one step.
    /// Result: STEP_FAILED also before a BeginSimu that returned true, and after any result but STEP_MADE.
    std::uint32_t NextStep(_GPS_Data& record);

    /// Result: true.
    bool EndSimu() noexcept;

private:
    bool Reset() noexcept;
    bool Advance(tagLonLat& next);
    bool LeaveBlock();
    void FillRecord(const tagLonLat& next, _GPS_Data& record) const;

    static std::int32_t StepSegment(tagLonLat start, tagLonLat end, double distance, tagLonLat current,
                                    tagLonLat& next);
    static double Bearing(const tagLonLat& from, const tagLonLat& to);

    double speed;               // [km/h]
    double stepDistance;        // [m]
    bool finished;              // the step that reached the route's end has been made
    CPath* path;                // borrowed
    PathGuid guide;             // the current block
    tagLonLat position;         // where the last step ended
    std::uint32_t segmentIndex; // of the point in guide.points at which the current segment starts
    bool driving;               // from a BeginSimu that returned true to the first result but STEP_MADE

public:
    CSharers sharers; // the façades that hold this object
};

} // namespace GPS
