// The smoothing step, against a textbook filter with plain arrays.
#include <array>
#include <cmath>
#include <cstring>
#include <memory>
#include <random>

#include <gtest/gtest.h>

#include "GpsLib/contracts/KestMath.h"
#include "GpsLib/filter/CGPSFilter.h"
#include "GpsLib/filter/SmoothFix.h"
#include "tests/support/Sentence.h"

namespace
{

using support::BytesOf;

/// One axis: place [deg], velocity [m/s], acceleration; place and velocity are observed. Longitude and
/// latitude have no cross terms, so two of these are the whole filter.
class TextbookAxis
{
public:
    void Seed(double place, double velocity)
    {
        x = {place, velocity, 1.0};
        P = {{{1e-8, 0, 0}, {0, 9, 0}, {0, 0, 25}}};
    }

    void Step(double unit, double q, double place, double velocity)
    {
        const Square F{{{1, unit, unit / 2}, {0, 1, 1}, {0, 0, q}}};
        const std::array<double, 3> Q{1e-11, 0.001, 0.1};
        std::array<double, 3> predicted{};
        Square half{};
        Square cov{};
        for (std::size_t i = 0; i < 3; ++i) {
            for (std::size_t k = 0; k < 3; ++k) {
                predicted[i] += F[i][k] * x[k];
                for (std::size_t j = 0; j < 3; ++j) {
                    half[i][j] += F[i][k] * P[k][j];
                }
            }
        }
        for (std::size_t i = 0; i < 3; ++i) {
            for (std::size_t j = 0; j < 3; ++j) {
                cov[i][j] = half[i][0] * F[j][0] + half[i][1] * F[j][1] + half[i][2] * F[j][2] +
                            (i == j ? Q[i] : 0.0);
            }
        }
        const double a = cov[0][0] + 4e-8;
        const double d = cov[1][1] + 25.0;
        const double determinant = a * d - cov[0][1] * cov[1][0];
        const double miss[] = {place - predicted[0], velocity - predicted[1]};
        for (std::size_t i = 0; i < 3; ++i) {
            const double gain0 = (cov[i][0] * d - cov[i][1] * cov[1][0]) / determinant;
            const double gain1 = (cov[i][1] * a - cov[i][0] * cov[0][1]) / determinant;
            x[i] = predicted[i] + gain0 * miss[0] + gain1 * miss[1];
            for (std::size_t j = 0; j < 3; ++j) {
                P[i][j] = cov[i][j] - gain0 * cov[0][j] - gain1 * cov[1][j];
            }
        }
    }

    double Place() const { return x[0]; }
    double Velocity() const { return x[1]; }

private:
    using Square = std::array<std::array<double, 3>, 3>;
    std::array<double, 3> x{};
    Square P{};
};

class TextbookFilter
{
public:
    void Seed(const _GPS_Filter_Data& fix)
    {
        east.Seed(fix.lonLat.lon, East(fix));
        north.Seed(fix.lonLat.lat, North(fix));
        lastHeading = fix.heading;
    }

    void Step(_GPS_Filter_Data& fix)
    {
        const double eastward = East(fix);
        const double northward = North(fix);
        fix.heading = fix.speed < 5.0 ? (fix.heading + lastHeading) / 2 : fix.heading;
        const double turn = std::fabs(fix.heading - lastHeading);
        const double q = turn > 20.0  ? 0.01839397206167837
                         : turn > 5.0 ? 0.03678794412335674
                                      : 18.39397206167837;
        east.Step(fix.unitDegreeLon, q, fix.lonLat.lon, eastward);
        north.Step(fix.unitDegreeLat, q, fix.lonLat.lat, northward);
        fix.lonLat = {east.Place(), north.Place()};
        fix.speed = std::hypot(east.Velocity(), north.Velocity()) * 3.6;
        lastHeading = fix.heading;
    }

private:
    static constexpr double DEGREE = 3.14159265358979323846 / 180.0;
    static double East(const _GPS_Filter_Data& fix)
    {
        return fix.speed / 3.6 * std::sin(fix.heading * DEGREE);
    }
    static double North(const _GPS_Filter_Data& fix)
    {
        return fix.speed / 3.6 * std::cos(fix.heading * DEGREE);
    }

    TextbookAxis east;
    TextbookAxis north;
    double lastHeading = 0.0;
};

_GPS_Filter_Data Fix(double lon, double lat, double speed, double heading)
{
    return {{lon, lat}, speed, heading, 1e-5, 9e-6, true};
}

/// Field by field, exactly; NaN equals itself.
void ExpectSame(const _GPS_Filter_Data& fix, const _GPS_Filter_Data& expected)
{
    const auto fields = [](const _GPS_Filter_Data& data) {
        return BytesOf(std::array<double, 7>{data.lonLat.lon, data.lonLat.lat, data.speed, data.heading,
                                             data.unitDegreeLon, data.unitDegreeLat, data.valid ? 1.0 : 0.0});
    };
    EXPECT_EQ(fields(fix), fields(expected));
}

class Smoothing : public testing::Test
{
protected:
    _GPS_Filter_Data Filtered(_GPS_Filter_Data fix) const
    {
        filter->Filter(fix);
        return fix;
    }

    void Seed(const _GPS_Filter_Data& fix)
    {
        ExpectSame(Filtered(fix), fix);
        textbook.Seed(fix);
    }

    /// Positions may differ by units of the last place of 121 degrees, 1e-14; speeds by more, since the
    /// factor of 18 raises the covariance of the acceleration to 1e4 and its rounding with it, to some 1e-10
    /// m/s. The filter forgets, so that nothing adds up.
    _GPS_Filter_Data StepAlike(const _GPS_Filter_Data& fix)
    {
        const _GPS_Filter_Data smoothed = Filtered(fix);
        _GPS_Filter_Data expected = fix;
        textbook.Step(expected);
        EXPECT_NEAR(smoothed.lonLat.lon, expected.lonLat.lon, 1e-12);
        EXPECT_NEAR(smoothed.lonLat.lat, expected.lonLat.lat, 1e-12);
        EXPECT_NEAR(smoothed.speed, expected.speed, 1e-7);
        EXPECT_EQ(smoothed.heading, expected.heading);
        return smoothed;
    }

    TextbookFilter textbook;
    std::unique_ptr<GPS::CGPSFilter> filter{GPS::CGPSFilter::Make()};
};

TEST_F(Smoothing, WorkedExample)
{
    const _GPS_Filter_Data first = Fix(121.0, 31.0, 36.0, 90.0);
    ExpectSame(Filtered(first), first);
    const _GPS_Filter_Data second = Filtered(Fix(121.0001, 31.00001, 36.0, 92.0));
    EXPECT_NEAR(second.lonLat.lon, 121.00010105, 5e-9); // half a unit of the last digit worked out
    EXPECT_NEAR(second.lonLat.lat, 31.00000216, 5e-9);
    EXPECT_NEAR(second.speed, 37.5139826, 5e-8);
    EXPECT_EQ(second.heading, 92.0);
    EXPECT_EQ(second.unitDegreeLon, 1e-5);
}

// The factor of a step shows in the step after it, which holds its heading: the nearest two factors move its
// speed by 1e-5 and more.
TEST_F(Smoothing, FactorFollowsTheChangeOfHeading)
{
    const struct {
        const char* rule;
        double speed;
        double headingBefore;
        double heading;
        double delivered; // heading
    } ROWS[] = {
        {"5 degrees hold", 50.0, 90.0, 95.0, 95.0},
        {"more than 5 turn", 50.0, 90.0, 95.0000001, 95.0000001},
        {"to the other side too", 50.0, 90.0, 84.9999999, 84.9999999},
        {"20 degrees turn", 50.0, 90.0, 110.0, 110.0},
        {"more than 20 turn sharply", 50.0, 90.0, 110.0000001, 110.0000001},
        {"no wrap at 360", 50.0, 359.0, 1.0, 1.0},
        {"no wrap in the average", 3.0, 359.0, 1.0, 180.0},
        {"below 5 km/h half a jump of 30 turns", 4.999, 90.0, 120.0, 105.0},
        {"below 5 km/h half a jump of 10 holds", 4.999, 90.0, 100.0, 95.0},
        {"from 5 km/h the whole jump counts", 5.0, 90.0, 120.0, 120.0},
        {"60 km/h is no limit", 60.0, 90.0, 100.0, 100.0},
    };
    for (const auto& row : ROWS) {
        SCOPED_TRACE(row.rule);
        filter.reset(GPS::CGPSFilter::Make());
        Seed(Fix(121.0, 31.0, row.speed, row.headingBefore));
        EXPECT_EQ(StepAlike(Fix(121.0001, 31.0001, row.speed, row.heading)).heading, row.delivered);
        StepAlike(Fix(121.0002, 31.0002, row.speed, row.delivered));
    }
}

TEST_F(Smoothing, AgreesWithATextbookFilterAtAllSpeedsAndHeadings)
{
    std::mt19937 random(19991231); // NOLINT(cert-msc32-c,cert-msc51-cpp): a run that can be repeated
    const auto between = [&random](double low, double high) {
        return low + (high - low) * static_cast<double>(random()) / 4294967295.0;
    };
    _GPS_Filter_Data fix = Fix(121.0, -31.0, 0.0, 0.0);
    double lastHeading = 0.0;
    for (int i = 0; i < 200; ++i) {
        fix.lonLat = {fix.lonLat.lon + between(-3e-4, 3e-4), fix.lonLat.lat + between(-3e-4, 3e-4)};
        fix.speed = between(0.0, i % 2 == 0 ? 6.0 : 130.0);
        fix.heading = i % 3 == 0 ? between(0.0, 360.0) : lastHeading + between(-12.0, 12.0);
        fix.unitDegreeLon = between(1.0e-5, 1.1e-5);
        lastHeading = fix.heading;
        if (i == 0) {
            Seed(fix);
        } else {
            lastHeading = StepAlike(fix).heading;
        }
    }
}

TEST_F(Smoothing, InvalidFixComesBackAndBreaksTheRun)
{
    Filtered(Fix(10.0, 20.0, 100.0, 300.0));
    Filtered(Fix(10.1, 20.1, 90.0, 10.0));
    _GPS_Filter_Data invalid = Fix(std::nan(""), HUGE_VAL, -1.0, 77.0);
    invalid.valid = false;
    ExpectSame(Filtered(invalid), invalid);
    const _GPS_Filter_Data seed = Fix(121.0, 31.0, 3.0, 90.0);
    ExpectSame(Filtered(seed), seed);
    const _GPS_Filter_Data afterBreak = Filtered(Fix(121.0001, 31.0001, 3.0, 100.0));

    filter.reset(GPS::CGPSFilter::Make()); // nothing of the run before is left, bit for bit
    Filtered(seed);
    ExpectSame(Filtered(Fix(121.0001, 31.0001, 3.0, 100.0)), afterBreak);
}

TEST_F(Smoothing, OfARecordRewritesPositionSpeedAndHeadingAlone)
{
    const std::unique_ptr<GPS::CGPSFilter> beside(GPS::CGPSFilter::Make());
    for (int i = 0; i < 4; ++i) {
        _GPS_Data record;
        std::memset(static_cast<void*>(&record), 0x21, sizeof record);
        record.lonLat = {121.0 + i * 1e-4, 31.0 - i * 2e-4};
        record.speed = 4.0;
        record.heading = 90.0 + i * 7.0;
        record.valid = i == 2 ? 0 : 1;
        _GPS_Filter_Data data = Fix(record.lonLat.lon, record.lonLat.lat, record.speed, record.heading);
        GetUnitDegree(record.lonLat, data.unitDegreeLon, data.unitDegreeLat); // before smoothing
        data.valid = record.valid == 1;
        beside->Filter(data);
        auto expected = BytesOf(record);
        const double written[] = {data.lonLat.lon, data.lonLat.lat, data.speed};
        std::memcpy(&expected[offsetof(_GPS_Data, lonLat)], written, sizeof written);
        std::memcpy(&expected[offsetof(_GPS_Data, heading)], &data.heading, sizeof data.heading);

        GPS::SmoothFix(*filter, record);
        EXPECT_EQ(BytesOf(record), expected) << i;
    }
}

} // namespace
