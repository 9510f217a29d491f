// Sine, cosine and the angle of a direction against the platform's with more digits.
#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "GpsLib/math/AngleOf.h"
#include "GpsLib/math/SinCos.h"

namespace
{

constexpr double INFINITE = std::numeric_limits<double>::infinity();
constexpr double NO_NUMBER = std::numeric_limits<double>::quiet_NaN();

constexpr bool KNOWS_BETTER = sizeof(long double) > sizeof(double); // else the platform is no nearer

/// Result: 0 for the double nearest to the exact value, 1 for its neighbours, 2 for any other.
int Off(double value, long double exact)
{
    const auto nearest = static_cast<double>(exact);
    const bool near =
        value == std::nextafter(nearest, INFINITE) || value == std::nextafter(nearest, -INFINITE);
    return value == nearest ? 0 : near ? 1 : 2;
}

TEST(SinCos, IsTheNearestDoubleButForOneArgumentInAThousand)
{
    int off = 0;
    for (int i = 0; i < 100000; ++i) {
        const double angle = -20.0 + i * 0.0004;
        const long double sine = std::sin(static_cast<long double>(angle));
        const long double cosine = std::cos(static_cast<long double>(angle));
        const GPS::SinCos both = GPS::SinCosOf(angle);
        const GPS::SinCos quick = GPS::QuickSinCosOf(angle);
        ASSERT_LE(std::max(Off(both.sine, sine), Off(both.cosine, cosine)), 1) << angle;
        ASSERT_LE(std::max(Off(quick.sine, sine), Off(quick.cosine, cosine)), 1) << angle;
        off += Off(both.sine, sine) + Off(both.cosine, cosine);
    }
    EXPECT_TRUE(off < 200 || !KNOWS_BETTER) << off; // two functions
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
    EXPECT_TRUE(std::isnan(GPS::SinCosOf(INFINITE).sine));
    EXPECT_TRUE(std::isnan(GPS::SinCosOf(NO_NUMBER).cosine));
}

TEST(AngleOf, IsTheNearestDoubleButForOneDirectionInAThousand)
{
    std::mt19937_64 random(7); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same directions every time
    std::uniform_real_distribution<double> leg(-1.0, 1.0);
    std::uniform_int_distribution<int> power(-20, 20); // slim triangles and fat ones
    int off = 0;
    for (int i = 0; i < 200000; ++i) {
        const double y = std::ldexp(leg(random), power(random));
        const double x = std::ldexp(leg(random), power(random));
        const long double exact = std::atan2(static_cast<long double>(y), static_cast<long double>(x));
        ASSERT_LE(Off(GPS::AngleOf(y, x), exact), 1) << y << ' ' << x;
        off += Off(GPS::AngleOf(y, x), exact);
    }
    EXPECT_TRUE(off < 200 || !KNOWS_BETTER) << off;
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
    EXPECT_TRUE(std::isnan(GPS::AngleOf(NO_NUMBER, 1.0)));
}

} // namespace
