#include "GpsLib/filter/velocity/CEpochClock.h"

#include <algorithm>

namespace GPS
{

namespace
{

constexpr std::int32_t MINUTE = 60;        // [s]
constexpr std::int32_t HOUR = 60 * MINUTE; // [s]
constexpr std::int32_t DAY = 24 * HOUR;    // [s]
constexpr double FRACTION_MOST =
    0.999; // [s] more epochs than there were a second ago crowd before the next stamp

/// Midnight sharp is no time unless the mask says so: that is what a record without a time holds.
bool HasTime(const _GPS_Data& fix) noexcept
{
    const _GPS_Time& time = fix.time;
    return (fix.mask & GPS_MASK_TIME) != 0 || time.hour != 0 || time.minute != 0 || time.second != 0;
}

} // namespace

double CEpochClock::Step(const _GPS_Data& fix) noexcept
{
    const bool hasTime = HasTime(fix);
    const std::int32_t stampBefore = stamp;
    stamp = hasTime ? fix.time.hour * HOUR + fix.time.minute * MINUTE + fix.time.second : NO_STAMP;
    if (!hasTime || stampBefore == NO_STAMP) {
        count = 1.0;
        countBefore = 0.0;
        fraction = 0.0;
        return period;
    }
    std::int32_t seconds = stamp - stampBefore;
    if (seconds < 0) {
        seconds += DAY;
    }
    const double fractionBefore = fraction;
    if (seconds == 0) {
        count += 1.0;
        fraction = std::min(fraction + period, FRACTION_MOST);
    } else {
        period = 1.0 / std::max(count, countBefore);
        countBefore = count;
        count = 1.0;
        fraction = 0.0;
    }
    return seconds + fraction - fractionBefore;
}

} // namespace GPS
