// The smoothing along the receiver's velocity, part by part and as a whole, against cases worked by hand.
#include "GpsLib/filter/velocity/CVelocityFilter.h"

#include <cmath>
#include <iterator>
#include <vector>

#include "tests/support/FakeWorld.h"
#include "tests/support/Sentence.h"

namespace
{

using GPS::EastNorth;
using Gate = GPS::COutlierGate;
using support::BytesOf;

constexpr int NO_TIME = -1;

_GPS_Data At(int second)
{
    _GPS_Data fix = support::FixAt(0.0, 0.0);
    if (second != NO_TIME) {
        support::SetTime(fix, second);
    }
    return fix;
}

TEST(EpochClock, TellsTheSecondsBetweenTheLastTwoEpochs)
{
    const struct {
        const char* rule;
        std::vector<int> stamps;
        double seconds;
    } ROWS[] = {
        {"once a second", {10, 11}, 1.0},
        {"every third", {10, 13}, 3.0},
        {"over midnight", {86399, 0}, 1.0},
        {"time runs back", {10, 9}, 86399.0},
        {"the first of all", {10}, 1.0},
        {"a second one crowds before the next stamp", {10, 10}, 0.999},
        {"time stands", {10, 10, 10}, 0.0},
        {"four a second", {9, 10, 10, 10, 10, 11, 11}, 0.25},
        {"on to the next second", {9, 10, 10, 10, 10, 11, 11, 11, 11, 12}, 0.25},
        {"the larger of two counts", {9, 10, 10, 10, 10, 11, 11, 11, 12, 12}, 0.25},
        {"no time: the latest period", {9, 10, 10, 11, NO_TIME}, 0.5},
        {"time again: the latest period", {9, 10, 10, 11, NO_TIME, 70000}, 0.5},
    };
    for (const auto& row : ROWS) {
        GPS::CEpochClock clock;
        double seconds = 0.0;
        for (const int stamp : row.stamps) {
            seconds = clock.Step(At(stamp));
        }
        EXPECT_NEAR(seconds, row.seconds, 1e-12) << row.rule;
    }
    GPS::CEpochClock clock;
    clock.Step(At(3));
    _GPS_Data fix = At(5);
    fix.mask = 0;
    EXPECT_EQ(clock.Step(fix), 2.0) << "a time without its bit";
}

TEST(ReceiverVelocity, StandsInForUpToThreeLostOnes)
{
    const double nan = std::nan("");
    const struct {
        const char* rule;
        double speedBefore; // [km/h] eastwards
        double speed;
        double heading;
        bool lost;
    } ROWS[] = {
        {"as good as any", 36.0, 1259.0, 360.0, false}, {"too fast", 36.0, 1260.0, 90.0, true},
        {"backwards", 36.0, -0.1, 90.0, true},          {"no number", 36.0, nan, 90.0, true},
        {"no heading", 36.0, 36.0, nan, true},          {"over a circle", 36.0, 36.0, 360.1, true},
        {"below a circle", 36.0, 36.0, -0.1, true},     {"a sentence lost", 14.5, 0.0, 0.0, true},
        {"a hard stop", 14.4, 0.0, 0.0, false},         {"a stop with a heading", 36.0, 0.0, 90.0, false},
    };
    for (const auto& row : ROWS) {
        GPS::CReceiverVelocity velocity;
        _GPS_Data fix = At(0);
        fix.speed = row.speedBefore;
        EXPECT_FALSE(velocity.Read(fix, 1.0)) << "a receiver that sends no heading";
        fix.heading = 90.0;
        ASSERT_TRUE(velocity.Read(fix, 1.0));
        for (int i = 1; i <= 4; ++i) {
            fix.speed = row.speed;
            fix.heading = row.heading;
            EXPECT_EQ(velocity.Read(fix, 1.0), !row.lost || i <= 3) << row.rule << i;
            EXPECT_EQ(fix.speed == row.speedBefore && fix.heading == 90.0, row.lost && i <= 3)
                << row.rule << i;
        }
    }
}

struct Look {
    double metres;
    int times = 1;         // a second apart
    double score = 0.0;    // [m2]
    EastNorth change = {}; // [m/s]
    bool moved = true;
};

TEST(OutlierGate, JudgesAFixByItsDistanceAndTheVelocityByManyOfThem)
{
    constexpr Look UNMOVED{0.0, 1, 0.0, {}, false};
    const struct {
        const char* rule;
        std::vector<Look> looks;
        Gate::VERDICT last;
    } ROWS[] = {
        {"8 m are none", {{0.0, 15}, {8.0}}, Gate::VERDICT_BELIEVE},
        {"more are one", {{0.0, 15}, {8.001}}, Gate::VERDICT_COAST},
        {"2 m for each m/s of change", {{0.0, 15}, {17.99, 1, 0.0, {3.0, 4.0}}}, Gate::VERDICT_BELIEVE},
        {"and no more", {{0.0, 15}, {18.01, 1, 0.0, {3.0, 4.0}}}, Gate::VERDICT_COAST},
        {"3 sigma of two axes", {{0.0, 15}, {29.99, 1, 50.0}}, Gate::VERDICT_BELIEVE},
        {"beyond them", {{0.0, 15}, {30.01, 1, 50.0}}, Gate::VERDICT_COAST},
        {"soon after a start the fix is right", {{0.0, 13}, {199.9}}, Gate::VERDICT_GO_OVER},
        {"unless it is far", {{0.0, 13}, {200.0}}, Gate::VERDICT_COAST},
        {"not 15 s after it", {{0.0, 14}, {199.9}}, Gate::VERDICT_COAST},
        {"10 s of outliers", {{0.0, 15}, {20.0, 10}}, Gate::VERDICT_COAST},
        {"longer", {{0.0, 15}, {20.0, 11}}, Gate::VERDICT_GO_OVER},
        {"counted anew", {{0.0, 15}, {20.0, 10}, {0.0}, {20.0, 10}}, Gate::VERDICT_COAST},
        {"twice the first one", {{0.0, 15}, {20.0}, {40.0}}, Gate::VERDICT_COAST},
        {"farther", {{0.0, 15}, {20.0}, {40.1}}, Gate::VERDICT_GO_OVER},
        {"the same position twice", {{0.0, 15}, UNMOVED, {20.0}}, Gate::VERDICT_COAST},
        {"three times", {{0.0, 15}, UNMOVED, UNMOVED, {20.0}}, Gate::VERDICT_GO_OVER},
    };
    for (const auto& row : ROWS) {
        Gate gate;
        Gate::VERDICT verdict = Gate::VERDICT_BELIEVE;
        for (const Look& look : row.looks) {
            for (int i = 0; i < look.times; ++i) {
                verdict = gate.Step({look.metres * look.metres, look.score, look.change, look.moved}, 1.0);
            }
        }
        EXPECT_EQ(verdict, row.last) << row.rule;
    }
}

/// On a flat Earth, 100 km a degree.
class VelocityFilter : public support::FakeWorld
{
protected:
    /// A fix of one who goes east at 36 km/h. metres: east of the beginning.
    _GPS_Data East(int second, double metres) const
    {
        _GPS_Data fix = At(second);
        fix.lonLat = {begin.lon + metres / 1e5, begin.lat};
        fix.speed = 36.0;
        fix.heading = 90.0;
        return fix;
    }

    /// Result: [m] that the filter moves the fix east.
    double Moved(_GPS_Data fix)
    {
        const double before = fix.lonLat.lon;
        filter.Filter(fix);
        EXPECT_EQ(fix.speed, 36.0);
        return (fix.lonLat.lon - before) * 1e5;
    }

    GPS::CVelocityFilter filter;
    tagLonLat begin{10.0, 45.0}; // [deg]
};

// The second fix lies 6 m ahead of the velocity. All points are 6 m behind it; three of them take over 1
// / 1.5 of that, the raw one all, and their scores are alike. The third fix lies where the velocity leads, so
// that the raw point foretold it best.
TEST_F(VelocityFilter, WorkedExample)
{
    EXPECT_EQ(Moved(East(1, 0.0)), 0.0);
    EXPECT_NEAR(Moved(East(2, 16.0)), -1.5, 1e-8); // the last place of 10 degrees is 2e-10 m
    const double weight = std::pow((21.5 - 21.5 / 3) / (21.5 - 19.5 / 3), 64);
    const double rest = -0.9 - 1.0 - 1.0; // of 2 m, after averages over 1 / 0.55, 2 and 2 fixes
    EXPECT_NEAR(Moved(East(3, 26.0)), rest * weight / (1 + 3 * weight), 1e-8);
}

TEST_F(VelocityFilter, LeavesWhatLiesBeyondItsRanges)
{
    const tagLonLat begins[] = {{10.0, 89.0}, {10.0, 89.00001}, {10.0, -89.0}, {179.99985, 45.0}};
    const bool smooths[] = {true, false, true, false};
    for (std::size_t i = 0; i < std::size(begins); ++i) {
        filter = GPS::CVelocityFilter();
        begin = begins[i];
        Moved(East(1, 0.0));
        EXPECT_EQ(Moved(East(2, 16.0)) < -1.0, smooths[i]) << i;
    }
}

TEST_F(VelocityFilter, BeginsAnewAfterSixSecondsWithoutAFix)
{
    for (const int gap : {6, 7}) {
        filter = GPS::CVelocityFilter();
        Moved(East(1, 0.0));
        Moved(East(2, 16.0));
        _GPS_Data none = East(2 + gap / 2, 30.0);
        none.valid = 0;
        const auto before = BytesOf(none);
        filter.Filter(none);
        EXPECT_EQ(BytesOf(none), before);
        EXPECT_EQ(Moved(East(2 + gap, 16.0 + 10.0 * gap)) == 0.0, gap == 7) << gap;
        EXPECT_NEAR(Moved(East(3 + gap, 32.0 + 10.0 * gap)) + 1.5, 0.0, gap == 7 ? 1e-8 : 1.5) << gap;
    }
}

// The worked example to the north, on so small an Earth that the point lies beyond the pole.
TEST_F(VelocityFilter, GoesOverToAFixThatWouldLeaveTheEarth)
{
    for (const double metresADegree : {2.0, 1.0}) {
        FakeMath::Set(1e5, metresADegree);
        filter = GPS::CVelocityFilter();
        double lat = 0.0;
        for (const int second : {1, 2}) {
            _GPS_Data fix = East(second, 0.0);
            fix.heading = 360.0;
            fix.lonLat.lat = 88.9 - (second == 1 ? 4.0 / metresADegree : 0.0);
            filter.Filter(fix);
            lat = fix.lonLat.lat;
        }
        EXPECT_NEAR(lat, metresADegree == 2.0 ? 89.65 : 88.9, 1e-12);
    }
}

} // namespace
