// What a receiver gets wrong, fed to the smoothing along its velocity: a minute of good fixes later it is as
// good as new.
#include <cmath>
#include <limits>
#include <random>

#include "GpsLib/filter/velocity/CVelocityFilter.h"
#include "tests/support/FakeWorld.h"
#include "tests/support/Sentence.h"

namespace
{

using GPS::CVelocityFilter;
using GPS::EastNorth;
using support::SetTime;

constexpr double METRES_A_DEGREE = 1e5; // of the faked Earth
constexpr double RADIAN = 57.295779513082323;
constexpr double NUMBERS_NONE[] = {std::numeric_limits<double>::quiet_NaN(), HUGE_VAL, -HUGE_VAL};
constexpr double BEYOND[] = {180.1, 91.0, 1e300, 360.1, -180.1, -91.0, -1e300, -360.1};

/// A vehicle in a town, and a receiver with white noise of 5 m and 0.2 m/s an axis.
struct Road {
    double period;    // [s] from fix to fix
    double longitude; // [deg] where it begins
    std::mt19937 random;
    std::normal_distribution<double> normal{};
    double clock = 50000.0; // [s]
    double driven = 0.0;    // [s]
    EastNorth place{};      // [m]
    double speed = 0.0;     // [m/s]
    double course = 0.3;    // [rad]
    tagLonLat latest{};     // [deg] the fix before it got slow

    /// Two minutes of driving, with a bend, braking, standing and starting, over and over.
    void Drive(int periods)
    {
        for (; periods > 0; --periods) {
            clock += period;
            driven += period;
            const double phase = std::fmod(driven, 120.0);
            speed += std::clamp((phase < 80.0 ? 12.0 : 0.0) - speed, -2.5 * period, 2.0 * period);
            course += phase > 30.0 && phase < 50.0 ? 0.1 * period : 0.0;
            place = place + period * Velocity();
        }
    }

    _GPS_Data Fix()
    {
        Drive(1);
        const EastNorth velocity = Velocity() + 0.2 * Noise();
        _GPS_Data fix;
        fix.valid = 1;
        SetTime(fix, static_cast<int>(std::fmod(clock + 1e-6, 86400.0)));
        fix.lonLat = PositionOf(place + 5.0 * Noise());
        fix.speed = std::sqrt(Square(velocity)) * 3.6;
        fix.heading = std::fmod(std::atan2(velocity.east, velocity.north) * RADIAN + 360.0, 360.0);
        return fix;
    }

    /// Result: [m2]
    double SquareError(const _GPS_Data& fix) const
    {
        const tagLonLat truth = PositionOf(place);
        const double turn = std::remainder(fix.lonLat.lon - truth.lon, 360.0);
        return Square(METRES_A_DEGREE * EastNorth{turn, fix.lonLat.lat - truth.lat});
    }

    EastNorth Velocity() const { return speed * EastNorth{std::sin(course), std::cos(course)}; }
    EastNorth Noise() { return {normal(random), normal(random)}; }
    tagLonLat PositionOf(EastNorth at) const
    {
        return {std::remainder(longitude + at.east / METRES_A_DEGREE, 360.0),
                31.0 + at.north / METRES_A_DEGREE};
    }
};

struct Moment {
    Road& road;
    _GPS_Data fix;
    int k;         // epochs since the fault began
    int times = 1; // that the fix is fed

    double& Field()
    {
        double* const fields[] = {&fix.lonLat.lon, &fix.lonLat.lat, &fix.speed, &fix.heading};
        return *fields[k % 4];
    }
    void Freeze()
    {
        const bool slow = road.speed < 2.0;
        fix.speed = slow ? 0.0 : fix.speed;
        fix.lonLat = road.latest = slow ? road.latest : fix.lonLat;
    }
};

enum FAULT { FAULT_HARMLESS, FAULT_HARMFUL, FAULT_FROM_THE_START };

const struct Fault {
    const char* rule;
    double seconds; // that it lasts
    void (*spoil)(Moment& moment);
    FAULT kind;        // but of a harmful one, what comes out is no worse than the raw fixes during it too
    double rate = 1.0; // [1/s]
    double longitude = 10.0;
} FAULTS[] = {
    {"nothing", 300, [](Moment&) {}, FAULT_HARMLESS},
    {"no numbers", 36, [](Moment& m) { m.Field() = NUMBERS_NONE[m.k / 4 % 3]; }, FAULT_HARMFUL},
    {"beyond the ranges", 20, [](Moment& m) { m.Field() = BEYOND[m.k % 8]; }, FAULT_HARMFUL},
    {"1 km off once", 1, [](Moment& m) { m.fix.lonLat.lat += 0.01; }, FAULT_HARMLESS},
    {"1 km off ten times", 10, [](Moment& m) { m.fix.lonLat.lon += 0.01; }, FAULT_HARMLESS},
    {"a jump for good", 1, [](Moment& m) { m.road.place.north += 300.0; }, FAULT_HARMFUL},
    {"each epoch twice", 100, [](Moment& m) { m.times = 2; }, FAULT_HARMLESS},
    {"no time", 300, [](Moment& m) { m.fix.mask = 0, m.fix.time = {}; }, FAULT_HARMLESS},
    {"time stands still", 100, [](Moment& m) { SetTime(m.fix, 7); }, FAULT_HARMLESS},
    {"time runs back", 100, [](Moment& m) { SetTime(m.fix, 9000 - m.k); }, FAULT_HARMLESS},
    {"midnight", 1, [](Moment& m) { m.road.clock = 86300.0; }, FAULT_HARMLESS},
    {"a gap of 2 s", 1, [](Moment& m) { m.road.Drive(2); }, FAULT_HARMFUL},
    {"a gap of 6 s", 1, [](Moment& m) { m.road.Drive(6); }, FAULT_HARMFUL},
    {"a gap of an hour", 1, [](Moment& m) { m.road.Drive(3600); }, FAULT_HARMFUL},
    {"a gap of a day", 1, [](Moment& m) { m.road.Drive(86399); }, FAULT_HARMFUL},
    {"the meridian", 300, [](Moment&) {}, FAULT_HARMLESS, 1.0, 179.99},
    {"near the pole", 60, [](Moment& m) { m.fix.lonLat.lat = 89.99; }, FAULT_HARMLESS},
    {"a fix in 5 s", 600, [](Moment&) {}, FAULT_HARMLESS, 0.2},
    {"two a second", 300, [](Moment&) {}, FAULT_HARMLESS, 2.0},
    {"20 a second", 300, [](Moment&) {}, FAULT_HARMLESS, 20.0},
    {"no heading", 300, [](Moment& m) { m.fix.heading = 0.0; }, FAULT_FROM_THE_START},
    {"heading lost for 5 s", 5, [](Moment& m) { m.fix.heading = 0.0; }, FAULT_HARMLESS},
    {"heading lost for 30 s", 30, [](Moment& m) { m.fix.heading = 0.0; }, FAULT_HARMLESS},
    {"heading lost for 60 s", 60, [](Moment& m) { m.fix.heading = 0.0; }, FAULT_HARMLESS},
    {"neither of the two", 300, [](Moment& m) { m.fix.heading = m.fix.speed = 0.0; }, FAULT_HARMLESS},
    {"frozen when slow", 300, [](Moment& m) { m.Freeze(); }, FAULT_HARMLESS},
};

/// Sums of squared errors. [m2]
struct Errors {
    double raw = 0.0;
    double smoothed = 0.0;
    double asNew = 0.0; // of a filter that met none of the fault
};

double ErrorOf(CVelocityFilter& filter, const Moment& moment)
{
    const auto isFinite = [](const _GPS_Data& fix) {
        return std::isfinite(fix.lonLat.lon + fix.lonLat.lat + fix.speed + fix.heading);
    };
    _GPS_Data out = moment.fix;
    for (int i = 0; i < moment.times; ++i) {
        out = moment.fix;
        filter.Filter(out);
        EXPECT_TRUE(isFinite(out) || !isFinite(moment.fix));
    }
    return moment.road.SquareError(out);
}

class VelocityFault : public support::FakeWorld
{
protected:
    void Feed(
        Road& road, double seconds, Errors& errors, void (*spoil)(Moment&) = [](Moment&) {})
    {
        const int epochs = static_cast<int>(std::lround(seconds / road.period));
        for (int k = 0; k < epochs; ++k) {
            Moment moment{road, road.Fix(), k};
            spoil(moment);
            errors.raw += road.SquareError(moment.fix);
            errors.smoothed += ErrorOf(filter, moment);
            errors.asNew += ErrorOf(fresh, moment);
        }
    }

    CVelocityFilter filter;
    CVelocityFilter fresh;
};

TEST_F(VelocityFault, LeavesNothingBehindAfterAMinute)
{
    for (const Fault& fault : FAULTS) {
        SCOPED_TRACE(fault.rule);
        Errors during;
        Errors after;
        for (unsigned seed = 1; seed <= 8; ++seed) { // since both filters' errors hang on the noise
            Errors none;
            Road road{1.0 / fault.rate, fault.longitude, std::mt19937(seed)};
            filter = CVelocityFilter();
            Feed(road, fault.kind == FAULT_FROM_THE_START ? 0.0 : 60.0, none);
            Feed(road, fault.seconds, during, fault.spoil);
            fresh = CVelocityFilter();
            Feed(road, 60.0, none);
            Feed(road, 120.0, after);
            Moment off{road, road.Fix(), 0};
            off.fix.lonLat.lat += 0.01;
            EXPECT_LT(ErrorOf(filter, off), 10.0 * 10.0) << "a fix 1 km off, [m]";
        }
        EXPECT_TRUE(fault.kind == FAULT_HARMFUL || during.smoothed <= during.raw * 1.02 * 1.02);
        EXPECT_LT(after.smoothed, after.raw);
        EXPECT_LT(after.smoothed, 1.2 * 1.2 * after.asNew);
    }
}

} // namespace
