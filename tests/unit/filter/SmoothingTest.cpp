// The smoothing step, against a textbook filter with plain arrays.
#include <array>
#include <cmath>
#include <cstring>
#include <memory>
#include <random>

#include <gtest/gtest.h>

#include "GpsLib/filter/CGPSFilter.h"
#include "GpsLib/filter/SmoothFix.h"
#include "tests/support/FakeWorld.h"
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
        const auto carry = [unit, q](Vector& v) {
            v = {v[0] + unit * v[1] + unit / 2 * v[2], v[1] + v[2], q * v[2]};
        };
        carry(x);
        for (int side = 0; side < 2; ++side) { // of P: one, and by the transposed the other
            for (Vector& row : P) {
                carry(row);
            }
            P = {{{P[0][0], P[1][0], P[2][0]}, {P[0][1], P[1][1], P[2][1]}, {P[0][2], P[1][2], P[2][2]}}};
        }
        P[0][0] += 1e-11;
        P[1][1] += 0.001;
        P[2][2] += 0.1;
        const double a = P[0][0] + 4e-8;
        const double d = P[1][1] + 25.0;
        const double determinant = a * d - P[0][1] * P[1][0];
        const Vector miss{place - x[0], velocity - x[1]};
        const auto predicted = P;
        for (std::size_t i = 0; i < 3; ++i) {
            const double gain0 = (predicted[i][0] * d - predicted[i][1] * predicted[1][0]) / determinant;
            const double gain1 = (predicted[i][1] * a - predicted[i][0] * predicted[0][1]) / determinant;
            x[i] += gain0 * miss[0] + gain1 * miss[1];
            for (std::size_t j = 0; j < 3; ++j) {
                P[i][j] -= gain0 * predicted[0][j] + gain1 * predicted[1][j];
            }
        }
    }

    double Place() const { return x[0]; }
    double Velocity() const { return x[1]; }

private:
    using Vector = std::array<double, 3>;
    Vector x{};
    std::array<Vector, 3> P{};
};

using Data = _GPS_Filter_Data;

class TextbookFilter
{
public:
    void Seed(const Data& fix)
    {
        east.Seed(fix.lonLat.lon, East(fix));
        north.Seed(fix.lonLat.lat, North(fix));
        lastHeading = fix.heading;
    }

    void Step(Data& fix)
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
    static double Radians(const Data& fix) { return fix.heading * (3.14159265358979323846 / 180.0); }
    static double East(const Data& fix) { return fix.speed / 3.6 * std::sin(Radians(fix)); }
    static double North(const Data& fix) { return fix.speed / 3.6 * std::cos(Radians(fix)); }

    TextbookAxis east;
    TextbookAxis north;
    double lastHeading = 0.0;
};

Data Fix(double lon, double lat, double speed, double heading)
{
    return {{lon, lat}, speed, heading, 1e-5, 9e-6, true};
}

/// Field by field, exactly; NaN equals itself.
void ExpectSame(const Data& fix, const Data& expected)
{
    const auto fields = [](const Data& data) {
        return BytesOf(std::array<double, 7>{data.lonLat.lon, data.lonLat.lat, data.speed, data.heading,
                                             data.unitDegreeLon, data.unitDegreeLat, data.valid ? 1.0 : 0.0});
    };
    EXPECT_EQ(fields(fix), fields(expected));
}

class Smoothing : public support::FakeWorld
{
protected:
    Data Filtered(Data fix) const
    {
        filter->Filter(fix);
        return fix;
    }

    void Seed(const Data& fix)
    {
        ExpectSame(Filtered(fix), fix);
        textbook.Seed(fix);
    }

    /// Positions may differ by units of the last place of 121 degrees, 1e-14; speeds by more, since the
    /// factor of 18 raises the covariance of the acceleration to 1e4 and its rounding with it, to some 1e-10
    /// m/s. The filter forgets, so that nothing adds up.
    Data StepAlike(const Data& fix)
    {
        const Data smoothed = Filtered(fix);
        Data expected = fix;
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
    Data fix = Fix(121.0, -31.0, 0.0, 0.0);
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
    Data invalid = Fix(std::nan(""), HUGE_VAL, -1.0, 77.0);
    invalid.valid = false;
    ExpectSame(Filtered(invalid), invalid);
    const Data seed = Fix(121.0, 31.0, 3.0, 90.0);
    ExpectSame(Filtered(seed), seed);
    const Data afterBreak = Filtered(Fix(121.0001, 31.0001, 3.0, 100.0));

    filter.reset(GPS::CGPSFilter::Make()); // nothing of the run before is left, bit for bit
    Filtered(seed);
    ExpectSame(Filtered(Fix(121.0001, 31.0001, 3.0, 100.0)), afterBreak);
}

TEST_F(Smoothing, OfARecordRewritesPositionSpeedAndHeadingAlone)
{
    const std::unique_ptr<GPS::CGPSFilter> beside(GPS::CGPSFilter::Make());
    FakeMath::Set(80000.0, 100000.0);
    for (int i = 0; i < 4; ++i) {
        _GPS_Data record;
        std::memset(static_cast<void*>(&record), 0x21, sizeof record);
        record.lonLat = {121.0 + i * 1e-4, 31.0 - i * 2e-4};
        record.speed = 4.0;
        record.heading = 90.0 + i * 7.0;
        record.valid = i == 2 ? 0 : 1;
        Data data = Fix(record.lonLat.lon, record.lonLat.lat, record.speed, record.heading);
        data.unitDegreeLon = 1.0 / 80000.0;
        data.unitDegreeLat = 1.0 / 100000.0;
        data.valid = record.valid == 1;
        beside->Filter(data);
        auto expected = BytesOf(record);
        const double written[] = {data.lonLat.lon, data.lonLat.lat, data.speed};
        std::memcpy(&expected[offsetof(_GPS_Data, lonLat)], written, sizeof written);
        std::memcpy(&expected[offsetof(_GPS_Data, heading)], &data.heading, sizeof data.heading);

        const double parsed = record.lonLat.lon;
        GPS::SmoothFix(*filter, record);
        EXPECT_EQ(BytesOf(record), expected) << i;
        EXPECT_EQ(FakeMath::askedFor.lon, parsed) << "units count where the fix was parsed";
    }
}

} // namespace
