// The angle of a direction against the platform's arc tangent with more digits.
#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "GpsLib/math/AngleOf.h"

namespace
{

constexpr double INFINITE = std::numeric_limits<double>::infinity();

TEST(AngleOf, IsTheNearestDoubleButForOneDirectionInAThousand)
{
    std::mt19937_64 random(7); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same directions every time
    std::uniform_real_distribution<double> leg(-1.0, 1.0);
    std::uniform_int_distribution<int> power(-20, 20); // slim triangles and fat ones
    int notNearest = 0;
    constexpr int COUNT = 200000;
    for (int i = 0; i < COUNT; ++i) {
        const double y = std::ldexp(leg(random), power(random));
        const double x = std::ldexp(leg(random), power(random));
        const double angle = GPS::AngleOf(y, x);
        const auto nearest =
            static_cast<double>(std::atan2(static_cast<long double>(y), static_cast<long double>(x)));
        ASSERT_TRUE(angle == nearest || angle == std::nextafter(nearest, INFINITE) ||
                    angle == std::nextafter(nearest, -INFINITE))
            << y << ' ' << x;
        notNearest += angle == nearest ? 0 : 1;
    }
    if (sizeof(long double) > sizeof(double)) { // else the other side is no better
        EXPECT_LT(notNearest, COUNT / 1000);
    }
}

TEST(AngleOf, IsExactAlongAxesAndDiagonalsAndAtTheEdges)
{
    constexpr double TINY = std::numeric_limits<double>::denorm_min();
    constexpr double HUGE_LEG = std::numeric_limits<double>::max();
    for (const double y : {0.0, -0.0, 1.0, -1.0, 1e130, -1e130, 1e-130, TINY, -TINY, HUGE_LEG, INFINITE}) {
        for (const double x : {0.0, -0.0, 1.0, -1.0, 1e130, 1e-130, -1e-130, TINY, HUGE_LEG, -INFINITE}) {
            const double angle = GPS::AngleOf(y, x);
            EXPECT_EQ(angle, std::atan2(y, x)) << y << ' ' << x;
            EXPECT_EQ(std::signbit(angle), std::signbit(y)) << y << ' ' << x;
        }
    }
    EXPECT_TRUE(std::isnan(GPS::AngleOf(std::numeric_limits<double>::quiet_NaN(), 1.0)));
}

} // namespace
