// What the library relies on in the geodesy library, whatever model of the Earth it has.
#include "GpsLib/contracts/KestMath.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace
{

constexpr double INF = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double LARGEST = std::numeric_limits<double>::max();

TEST(GeodesyContract, UnitsAreFiniteAndPositiveEverywhereAndReciprocal)
{
    for (const double lat : {0.0, 31.0, -45.0, 89.9999999, 90.0, -90.0, 90.1, 180.0, 270.0, INF, -INF,
                             NOT_A_NUMBER, LARGEST, -LARGEST}) {
        for (const double lon : {0.0, 121.0, -180.0, 180.0, 1e9, INF, -INF, NOT_A_NUMBER, LARGEST}) {
            double lengths[2] = {-1.0, -1.0};
            double degrees[2] = {-1.0, -1.0};
            GetUnitLength({lon, lat}, lengths[0], lengths[1]);
            GetUnitDegree({lon, lat}, degrees[0], degrees[1]);
            for (const int i : {0, 1}) {
                EXPECT_TRUE(std::isfinite(lengths[i]) && lengths[i] > 0.0) << lon << ' ' << lat;
                EXPECT_DOUBLE_EQ(lengths[i] * degrees[i], 1.0) << lon << ' ' << lat; // two roundings
            }
        }
    }
}

} // namespace
