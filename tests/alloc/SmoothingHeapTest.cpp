// Each allocation of a smoothing step failing once.
#include <memory>

#include <gtest/gtest.h>

#include "GpsLib/filter/CGPSFilter.h"
#include "tests/alloc/CountedHeap.h"

namespace
{

constexpr _GPS_Filter_Data FIRST{{121.0, 31.0}, 3.0, 90.0, 1e-5, 9e-6, true};
constexpr _GPS_Filter_Data SECOND{{121.0001, 31.0001}, 3.0, 100.0, 1e-5, 9e-6, true};
constexpr _GPS_Filter_Data THIRD{{121.0002, 31.0003}, 4.0, 110.0, 1e-5, 9e-6, true};

using Filter = std::unique_ptr<GPS::CGPSFilter>;

bool Same(const _GPS_Filter_Data& left, const _GPS_Filter_Data& right)
{
    return left.lonLat.lon == right.lonLat.lon && left.lonLat.lat == right.lonLat.lat &&
           left.speed == right.speed && left.heading == right.heading;
}

_GPS_Filter_Data Filtered(const Filter& filter, _GPS_Filter_Data fix)
{
    filter->Filter(fix);
    return fix;
}

/// A run fails in the step that follows so many others.
class SmoothingFailure : public testing::TestWithParam<int>
{
};

INSTANTIATE_TEST_SUITE_P(AfterSteps, SmoothingFailure, testing::Values(0, 1, 2));

TEST_P(SmoothingFailure, LeavesTheFixAsItWasAndTheFilterUnseeded)
{
    const Filter fresh(GPS::CGPSFilter::Make());
    Filtered(fresh, FIRST);
    const _GPS_Filter_Data smoothed = Filtered(fresh, SECOND);
    ASSERT_FALSE(Same(smoothed, SECOND));
    std::uint64_t n = 1;
    for (bool failed = true; failed; ++n) {
        const Filter filter(GPS::CGPSFilter::Make());
        for (int i = 0; i < GetParam(); ++i) {
            Filtered(filter, i == 0 ? FIRST : SECOND);
        }
        _GPS_Filter_Data fix = THIRD;
        failed = heap::Failing(n, [&filter, &fix] { filter->Filter(fix); });
        if (failed) {
            ASSERT_TRUE(Same(fix, THIRD)) << n;
            ASSERT_TRUE(Same(Filtered(filter, FIRST), FIRST)) << n; // a seed
            ASSERT_TRUE(Same(Filtered(filter, SECOND), smoothed)) << n;
        }
    }
    EXPECT_GT(n, 2U);
}

} // namespace
