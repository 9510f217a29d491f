// CEpochClock.h: seconds from epoch to epoch, out of stamps in whole seconds.
#pragma once

#include <cstdint>

#include "GpsLib/records/GPSRecords.h"

namespace GPS
{

/// A record's time has no fraction, so that several epochs a second share one stamp. They lie as far apart
/// as the larger count of the last two whole seconds says: one of the two may have lost some.
/// Thread: one at a time.
class CEpochClock
{
public:
    /// Result: [s] since the epoch before. 0 when time stands still, nearly a day when it runs back; the
    /// latest period when either epoch has no time. Below 0 only for times of more than a day.
    double Step(const _GPS_Data& fix) noexcept;

private:
    static constexpr std::int32_t NO_STAMP = -1;

    std::int32_t stamp = NO_STAMP; // [s] of the day, of the epoch before
    double count = 0.0;       // epochs with this stamp; a double, so that no clock that stands overflows it
    double countBefore = 0.0; // epochs with the stamp before
    double fraction = 0.0;    // [s] of the epoch before, behind its stamp
    double period = 1.0;      // [s] from epoch to epoch
};

} // namespace GPS
