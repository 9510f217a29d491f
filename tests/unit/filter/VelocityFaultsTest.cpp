// What a receiver gets wrong, fed to the smoothing along its velocity: a minute of good fixes later it is as
// good as new.
#include <cmath>
#include <limits>
#include <random>

#include "GpsLib/filter/velocity/CVelocityFilter.h"
#include "tests/support/FakeWorld.h"

namespace
{

using GPS::CVelocityFilter;
using GPS::EastNorth;

constexpr double METRES_A_DEGREE = 1e5; // of the faked Earth
constexpr double NUMBERS_NONE[] = {std::numeric_limits<double>::quiet_NaN(), HUGE_VAL, -HUGE_VAL};

/// A vehicle in a town, and a receiver with white noise of 5 m an axis.
class Road
{
public:
    explicit Road(double rate, double longitude, unsigned seed)
        : period(1.0 / rate), origin(longitude), random(seed)
    {
    }

    /// Two minutes of driving, with a bend, braking, standing and starting, over and over.
    void Drive(double seconds)
    {
        for (double left = seconds; left > 1e-9; left -= period) {
            const double step = std::min(period, left);
            clock += step;
            driven += step;
            const double phase = std::fmod(driven, 120.0);
            const double wanted = phase < 80.0 ? 12.0 : 0.0;
            speed += std::clamp(wanted - speed, -2.5 * step, 2.0 * step);
            heading += phase > 30.0 && phase < 50.0 ? 0.1 * step : 0.0; // [rad]
            place = place + speed * step * EastNorth{std::sin(heading), std::cos(heading)};
        }
    }

    _GPS_Data Fix()
    {
        Drive(period);
        const EastNorth velocity = speed * EastNorth{std::sin(heading), std::cos(heading)} + 0.2 * Noise();
        _GPS_Data fix;
        fix.valid = 1;
        fix.mask = GPS_MASK_TIME;
        SetTime(fix, clock);
        fix.lonLat = PositionOf(place + 5.0 * Noise());
        fix.speed = std::sqrt(Square(velocity)) * 3.6;
        fix.heading = std::fmod(
            std::atan2(velocity.east, velocity.north) / 3.14159265358979323846 * 180.0 + 360.0, 360.0);
        return fix;
    }

    /// Result: [m2]
    double SquareError(const _GPS_Data& fix) const
    {
        const tagLonLat truth = PositionOf(place);
        const double turn = std::remainder(fix.lonLat.lon - truth.lon, 360.0);
        return Square(METRES_A_DEGREE * EastNorth{turn, fix.lonLat.lat - truth.lat});
    }

    static void SetTime(_GPS_Data& fix, double time)
    {
        const int second = static_cast<int>(std::fmod(time + 1e-6, 86400.0));
        fix.time = {static_cast<std::uint8_t>(second / 3600),
                    static_cast<std::uint8_t>(second / 60 % 60),
                    static_cast<std::uint8_t>(second % 60),
                    {}};
    }

    double clock = 50000.0; // [s]
    EastNorth place;        // [m] the truth
    double speed = 0.0;     // [m/s] the truth
    tagLonLat frozen{};     // [deg] what a fault remembers

private:
    EastNorth Noise() { return {normal(random), normal(random)}; }
    tagLonLat PositionOf(EastNorth at) const
    {
        return {std::remainder(origin + at.east / METRES_A_DEGREE, 360.0), 31.0 + at.north / METRES_A_DEGREE};
    }

public:
    const double period; // [s]

private:
    const double origin;  // [deg] longitude
    double driven = 0.0;  // [s]
    double heading = 0.3; // [rad]
    std::mt19937 random;
    std::normal_distribution<double> normal;
};

struct Fault {
    const char* rule;
    double seconds; // that it lasts
    /// k: epochs since it began. Result: how often the fix is fed.
    int (*spoil)(_GPS_Data& fix, int k, Road& road);
    bool harmless = false; // the raw fixes are good throughout, and what comes out is no worse
    double rate = 1.0;     // [1/s]
    double longitude = 10.0;
    bool warm = true; // it begins after a minute of good fixes
};

int Gap(Road& road, int k, double seconds)
{
    if (k == 0) {
        road.Drive(seconds);
    }
    return 0;
}

const Fault FAULTS[] = {
    {"nothing", 300, [](_GPS_Data&, int, Road&) { return 1; }, true},
    {"no numbers in any field", 36,
     [](_GPS_Data& fix, int k, Road&) {
         double* const fields[] = {&fix.lonLat.lon, &fix.lonLat.lat, &fix.speed, &fix.heading};
         *fields[k % 4] = NUMBERS_NONE[k / 4 % 3];
         return 1;
     }},
    {"beyond the ranges", 20,
     [](_GPS_Data& fix, int k, Road&) {
         const double beyond[] = {180.1, 91.0, 1e300, 360.1};
         double* const fields[] = {&fix.lonLat.lon, &fix.lonLat.lat, &fix.speed, &fix.heading};
         *fields[k % 4] = k / 4 % 2 == 0 ? beyond[k % 4] : -beyond[k % 4];
         return 1;
     }},
    {"1 km off once", 1,
     [](_GPS_Data& fix, int, Road&) {
         fix.lonLat.lat += 0.01;
         return 1;
     }},
    {"1 km off ten times", 10,
     [](_GPS_Data& fix, int, Road&) {
         fix.lonLat.lon += 0.01;
         return 1;
     }},
    {"a jump for good", 1,
     [](_GPS_Data&, int, Road& road) {
         road.place.north += 300.0;
         return 0;
     }},
    {"each epoch twice", 100, [](_GPS_Data&, int, Road&) { return 2; }, true},
    {"no time", 300,
     [](_GPS_Data& fix, int, Road&) {
         fix.mask = 0;
         fix.time = {};
         return 1;
     },
     true},
    {"time stands still", 100,
     [](_GPS_Data& fix, int, Road&) {
         Road::SetTime(fix, 7);
         return 1;
     },
     true},
    {"time runs back", 100,
     [](_GPS_Data& fix, int k, Road&) {
         Road::SetTime(fix, 9000 - k);
         return 1;
     },
     true},
    {"midnight", 20,
     [](_GPS_Data&, int k, Road& road) {
         road.clock = k == 0 ? 86390.0 : road.clock;
         return k == 0 ? 0 : 1;
     }},
    {"a gap of 2 s", 1, [](_GPS_Data&, int k, Road& road) { return Gap(road, k, 2.0); }},
    {"a gap of 6 s", 1, [](_GPS_Data&, int k, Road& road) { return Gap(road, k, 6.0); }},
    {"a gap of an hour", 1, [](_GPS_Data&, int k, Road& road) { return Gap(road, k, 3600.0); }},
    {"a gap of a day", 1, [](_GPS_Data&, int k, Road& road) { return Gap(road, k, 86399.0); }},
    {"the meridian", 300, [](_GPS_Data&, int, Road&) { return 1; }, true, 1.0, 179.99},
    {"near the pole", 60,
     [](_GPS_Data& fix, int, Road&) {
         fix.lonLat.lat = 89.99;
         return 1;
     }},
    {"a fix in 5 s", 600, [](_GPS_Data&, int, Road&) { return 1; }, true, 0.2},
    {"two a second", 300, [](_GPS_Data&, int, Road&) { return 1; }, true, 2.0},
    {"20 a second", 300, [](_GPS_Data&, int, Road&) { return 1; }, true, 20.0},
    {"no heading", 300,
     [](_GPS_Data& fix, int, Road&) {
         fix.heading = 0.0;
         return 1;
     },
     true, 1.0, 10.0, false},
    {"neither speed nor heading", 300,
     [](_GPS_Data& fix, int, Road&) {
         fix.speed = fix.heading = 0.0;
         return 1;
     },
     true},
    {"frozen when slow", 300,
     [](_GPS_Data& fix, int, Road& road) {
         road.frozen = road.speed > 2.0 ? fix.lonLat : road.frozen;
         fix.speed = road.speed > 2.0 ? fix.speed : 0.0;
         fix.lonLat = road.frozen;
         return 1;
     }},
};

bool IsFinite(const _GPS_Data& fix)
{
    return std::isfinite(fix.lonLat.lon + fix.lonLat.lat + fix.speed + fix.heading);
}

/// Result: [m2] of the error that comes out, the last time it is fed.
double Feed(CVelocityFilter& filter, const Road& road, const _GPS_Data& fix, int times = 1)
{
    _GPS_Data out = fix;
    for (; times > 0; --times) {
        out = fix;
        filter.Filter(out);
        EXPECT_TRUE(IsFinite(out) || !IsFinite(fix));
    }
    return road.SquareError(out);
}

/// Sums of squared errors. [m2]
struct Errors {
    double raw = 0.0;
    double smoothed = 0.0;
    double asNew = 0.0; // of a filter that met none of the fault
};

/// A minute of good fixes, the fault, another minute, and two that count.
class Course
{
public:
    Course(const Fault& fault, unsigned seed) : fault(fault), road(fault.rate, fault.longitude, seed) {}

    void Go(Errors& during, Errors& after)
    {
        Errors none;
        FeedGood(fault.warm ? 60.0 : 0.0, none);
        Suffer(during);
        fresh = CVelocityFilter();
        FeedGood(60.0, none);
        FeedGood(120.0, after);
        _GPS_Data off = road.Fix();
        off.lonLat.lat += 0.01;
        EXPECT_LT(Feed(filter, road, off), 10.0 * 10.0);
    }

private:
    void FeedGood(double seconds, Errors& errors)
    {
        for (double t = 0.0; t < seconds; t += road.period) {
            const _GPS_Data fix = road.Fix();
            errors.raw += road.SquareError(fix);
            errors.smoothed += Feed(filter, road, fix);
            errors.asNew += Feed(fresh, road, fix);
        }
    }

    void Suffer(Errors& errors)
    {
        int k = 0;
        for (double t = 0.0; t < fault.seconds; t += road.period, ++k) {
            _GPS_Data fix = road.Fix();
            const int times = fault.spoil(fix, k, road);
            errors.raw += road.SquareError(fix);
            errors.smoothed += Feed(filter, road, fix, times);
        }
    }

    const Fault& fault;
    Road road;
    CVelocityFilter filter;
    CVelocityFilter fresh;
};

class VelocityFault : public support::FakeWorld
{
};

TEST_F(VelocityFault, LeavesNothingBehindAfterAMinute)
{
    for (const Fault& fault : FAULTS) {
        SCOPED_TRACE(fault.rule);
        Errors during;
        Errors after;
        for (unsigned seed = 1; seed <= 8; ++seed) {
            Course(fault, seed).Go(during, after);
        }
        EXPECT_TRUE(!fault.harmless || during.smoothed <= during.raw * 1.02 * 1.02);
        EXPECT_LT(after.smoothed, after.raw);
        EXPECT_LT(after.smoothed, 1.2 * 1.2 * after.asNew);
    }
}

} // namespace
