#include "tools/drive/DriveClock.h"

#include <gtest/gtest.h>

namespace
{

/// Result: the second since the midnight of the first day that a stamp tells; -1 for another month.
std::int64_t SecondOf(const kestgps::DriveClock& clock, std::uint64_t number)
{
    _GPS_Data fix;
    clock.Stamp(number, fix);
    const bool ofMonth = fix.date.year == 26 && fix.date.month == 1;
    return ofMonth ? ((fix.date.day - 1) * 24 + fix.time.hour) * 3600 + fix.time.minute * 60 + fix.time.second
                   : -1;
}

TEST(DriveClock, IsExactOverADayForEveryStepOfWholeMilliseconds)
{
    constexpr std::uint64_t DAY = 86400000; // [ms]
    constexpr std::uint64_t LONGEST = 3600000;
    for (std::uint64_t step = 1; step <= LONGEST; ++step) {
        const kestgps::DriveClock clock(static_cast<double>(step) / 1000.0); // the double nearest to its text
        const std::uint64_t last = DAY / step;
        for (const std::uint64_t number : {std::uint64_t{1}, last / 3 / 10 * 10, last / 1000 * 1000, last}) {
            ASSERT_EQ(SecondOf(clock, number), static_cast<std::int64_t>(number * step / 1000))
                << step << " ms";
        }
    }
}

TEST(DriveClock, KeepsNineDecimals)
{
    const kestgps::DriveClock third(0.333333333);
    EXPECT_EQ(SecondOf(third, 3), 0);
    EXPECT_EQ(SecondOf(third, 259200), 86399); // 0.1 ms short of a day
    const kestgps::DriveClock more(3599.999999999);
    EXPECT_EQ(SecondOf(more, 24), 86399);
    EXPECT_EQ(SecondOf(kestgps::DriveClock(1.000000001), 86400), 86400);
}

} // namespace
