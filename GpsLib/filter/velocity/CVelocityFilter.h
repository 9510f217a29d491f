// CVelocityFilter.h: smooths positions along the receiver's own velocity, one fix an epoch.
#pragma once

#include "GpsLib/filter/velocity/CEpochClock.h"
#include "GpsLib/filter/velocity/CGainBank.h"
#include "GpsLib/filter/velocity/CHeldHeading.h"
#include "GpsLib/filter/velocity/COutlierGate.h"
#include "GpsLib/filter/velocity/CReceiverVelocity.h"
#include "GpsLib/filter/velocity/CStandstill.h"
#include "GpsLib/filter/velocity/CVelocityLag.h"
#include "GpsLib/records/GPSRecords.h"

namespace GPS
{

/// The way from fix to fix is reckoned with the receiver's velocity, corrected for its lag, and the reckoned
/// point is drawn to each fix as hard as has foretold the latest fixes best. Where nothing can be gained, the
/// raw fix comes out by itself.
///
/// All offsets are metres east and north of the latest raw fix. So nothing depends on an origin, and an
/// offset of 0 is the raw fix to the last bit. Whatever comes in, what goes out is finite and on Earth where
/// the fix was. The time is the record's own; the mask's bits of speed and heading aren't asked, since a GGA
/// has replaced them by the end of an epoch.
/// Thread: one at a time.
class CVelocityFilter
{
public:
    /// Smooths the fix in place: position and heading; and speed and heading where they were lost for up to
    /// three epochs. A run begins with the first usable fix after 6 s without one, after time that stands
    /// still or runs back and after a lack of velocity; that fix keeps its position. A fix that isn't valid,
    /// or isn't between 89 degrees south and north, comes back as it was.
    void Filter(_GPS_Data& fix) noexcept;

private:
    void Smooth(_GPS_Data& fix, double seconds) noexcept;
    EastNorth WayTo(const tagLonLat& position, EastNorth metresADegree) noexcept;
    void BeginRun(const _GPS_Data& fix) noexcept;
    void GoOver() noexcept;
    void Move(tagLonLat& position, EastNorth metresADegree) noexcept;

    CEpochClock clock;
    CReceiverVelocity velocity;
    CStandstill standstill;
    CVelocityLag lag;
    CGainBank bank;
    COutlierGate gate;
    CHeldHeading heading;
    bool running = false; // there is a fix to go on from
    double since = 0.0;   // [s] since the latest usable fix
    tagLonLat last{};     // [deg] the latest usable fix, raw
};
static_assert(sizeof(CVelocityFilter) < 1024);

} // namespace GPS
