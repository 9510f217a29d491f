// Sine and cosine against the platform's with more digits.
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "GpsLib/math/SinCos.h"

namespace
{

/// Result: whether the value is the double nearest to the exact one, or its neighbour.
bool IsNear(double value, double nearest)
{
    constexpr double INFINITE = std::numeric_limits<double>::infinity();
    return value == nearest || value == std::nextafter(nearest, INFINITE) ||
           value == std::nextafter(nearest, -INFINITE);
}

TEST(SinCos, IsTheNearestDoubleButForOneArgumentInAThousand)
{
    int notNearest = 0;
    int checked = 0;
    for (; checked < 100000; ++checked) {
        const double angle = -20.0 + checked * 0.0004;
        const GPS::SinCos both = GPS::SinCosOf(angle);
        const auto sine = static_cast<double>(std::sin(static_cast<long double>(angle)));
        const auto cosine = static_cast<double>(std::cos(static_cast<long double>(angle)));
        ASSERT_TRUE(IsNear(both.sine, sine)) << angle;
        ASSERT_TRUE(IsNear(both.cosine, cosine)) << angle;
        const GPS::SinCos quick = GPS::QuickSinCosOf(angle);
        ASSERT_TRUE(IsNear(quick.sine, sine)) << angle;
        ASSERT_TRUE(IsNear(quick.cosine, cosine)) << angle;
        notNearest += both.sine != sine || both.cosine != cosine ? 1 : 0;
    }
    if (sizeof(long double) > sizeof(double)) { // else the other side is no better
        EXPECT_LT(notNearest, checked / 500);   // two functions
    }
}

TEST(SinCos, HoldsAtTheEdges)
{
    constexpr double HALF_PI = 1.5707963267948966;
    EXPECT_EQ(GPS::SinCosOf(0.0).sine, 0.0);
    EXPECT_EQ(GPS::SinCosOf(0.0).cosine, 1.0);
    EXPECT_EQ(GPS::SinCosOf(HALF_PI).sine, 1.0);
    EXPECT_EQ(GPS::SinCosOf(HALF_PI).cosine, 6.123233995736766e-17); // pi/2 less its double
    EXPECT_EQ(GPS::QuickSinCosOf(HALF_PI).cosine, 6.123233995736766e-17);
    EXPECT_EQ(GPS::SinCosOf(-2 * HALF_PI).sine, -1.2246467991473532e-16);
    EXPECT_EQ(GPS::SinCosOf(1e300).sine, std::sin(1e300));
    EXPECT_EQ(GPS::SinCosOf(-1.6e6).cosine, std::cos(-1.6e6));
    EXPECT_TRUE(std::isnan(GPS::SinCosOf(std::numeric_limits<double>::infinity()).sine));
    EXPECT_TRUE(std::isnan(GPS::SinCosOf(std::numeric_limits<double>::quiet_NaN()).cosine));
}

} // namespace
