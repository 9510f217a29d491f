#include "tools/drive/DriveClock.h"

#include "tools/text/DecimalText.h"

namespace kestgps
{

namespace
{

constexpr _GPS_Date FIRST_DAY = {26, 1, 1};
constexpr std::uint64_t NS_A_SECOND = 1'000'000'000;
constexpr std::uint64_t SECONDS_A_DAY = 86400;

std::uint8_t Narrow(std::uint64_t value) noexcept
{
    return static_cast<std::uint8_t>(value);
}

/// Result: the day so many days behind the first, by the civil calendar.
_GPS_Date DayAfter(std::uint64_t days)
{
    _GPS_Date day = FIRST_DAY;
    for (; days > 0; --days) {
        const bool leap = day.year % 4 == 0; // right from 2000 to 2099, which is what two digits tell
        const int lengths[] = {31, leap ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        day.day = Narrow(day.day + 1U);
        if (day.day > lengths[day.month - 1]) {
            day.day = 1;
            day.month = Narrow(day.month % 12U + 1U);
            day.year = static_cast<std::uint16_t>((day.year + (day.month == 1 ? 1 : 0)) % 100);
        }
    }
    return day;
}

} // namespace

DriveClock::DriveClock(double step) noexcept : step(static_cast<std::uint64_t>(Scaled(step, STEP_DECIMALS)))
{
}

void DriveClock::Stamp(std::uint64_t number, _GPS_Data& fix) const
{
    const std::uint64_t second = number * step / NS_A_SECOND;
    const std::uint64_t ofDay = second % SECONDS_A_DAY;
    fix.date = DayAfter(second / SECONDS_A_DAY);
    fix.time.hour = Narrow(ofDay / 3600);
    fix.time.minute = Narrow(ofDay / 60 % 60);
    fix.time.second = Narrow(ofDay % 60);
}

} // namespace kestgps
