// The drive along a route, on a map where a degree is 100 km in both directions.
#include <cmath>
#include <limits>
#include <stdexcept>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "GpsLib/contracts/KestRoute.h"
#include "GpsLib/simu/CGPSSimuDevice.h"
#include "tests/support/FakeWorld.h"
#include "tests/support/Row.h"

namespace
{

using GPS::CGPSSimuDevice;

constexpr double DEGREE = 100000.0; // [m] as the fake geodesy has it
constexpr double INFINITE = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

constexpr double Metres(double metres)
{
    return metres / DEGREE;
}

/// A route that hands out what the test has put in, block by block.
class ScriptedPath final : public CPath
{
public:
    int StartGuid() const override { return starts; }
    int NextGuid(PathGuid& block) const override
    {
        block = blocks.empty() ? block : blocks.front();
        return blocks.empty() ? 0 : 1;
    }
    int GetNextGuid(const PathGuid& from, PathGuid& to) const override
    {
        askedFrom.push_back(from.points);
        if (throws) {
            to.points = nullptr;
            throw std::runtime_error("no route");
        }
        to = ++given < blocks.size() ? blocks[given] : to;
        return given < blocks.size() ? 1 : 0;
    }

    int starts = 1;
    bool throws = false;
    std::vector<PathGuid> blocks;
    mutable std::size_t given = 0;
    mutable std::vector<const tagLonLat*> askedFrom;
};

PathGuid Block(const std::vector<tagLonLat>& points, double blockLength, double nextLength)
{
    PathGuid block{};
    block.points = points.data();
    block.pointCount = static_cast<std::uint16_t>(points.size());
    block.blockLength = blockLength;
    block.nextLength = nextLength;
    block.endPoint = points.back();
    return block;
}

constexpr double LAST = -1.0;
constexpr double LONG = 1e6; // [m] longer than any step

class Drive : public support::FakeWorld
{
protected:
    /// One metre a second and step, times `metres`.
    bool Begin(double metres) { return device.SetSimuParam(&path, metres, 3.6) && device.BeginSimu(); }

    /// The same along one block of these points.
    bool BeginAlong(const std::vector<tagLonLat>& along, double metres)
    {
        points = along;
        path.blocks = {Block(points, LONG, LAST)};
        return Begin(metres);
    }

    std::vector<tagLonLat> points;
    ScriptedPath path;
    CGPSSimuDevice device;
    _GPS_Data record;
};

TEST_F(Drive, StopsOnEachPointAndDropsTheRestOfTheStep)
{
    ASSERT_TRUE(BeginAlong({{0.0, 0.0}, {Metres(40), 0.0}, {Metres(40), Metres(10)}}, 15.0));
    for (const double metres : {15.0, 30.0}) {
        ASSERT_TRUE(device.GetGPSData(record));
        EXPECT_NEAR(record.lonLat.lon, Metres(metres), 1e-15); // two roundings of about 1e-4
        EXPECT_EQ(record.heading, 90.0);
    }
    ASSERT_TRUE(device.GetGPSData(record));
    EXPECT_EQ(record.lonLat.lon, points[1].lon) << "exactly the point";
    record.valid = 0;
    EXPECT_FALSE(device.GetGPSData(record)) << "the arrival";
    EXPECT_EQ(record.valid, 1);
    EXPECT_EQ(record.lonLat.lat, points[2].lat);
    record.valid = 0;
    EXPECT_FALSE(device.GetGPSData(record)) << "nothing behind the end";
    EXPECT_EQ(record.valid, 0);
}

TEST_F(Drive, RecordSaysWhatADriveKnows)
{
    ASSERT_TRUE(BeginAlong({{10.0, 20.0}, {11.0, 20.0}}, 1.0));
    ASSERT_TRUE(device.SetSimuParam(&path, 1.0, 400.0));
    ASSERT_TRUE(device.GetGPSData(record));
    EXPECT_EQ(record.mask, 862U);
    EXPECT_EQ(record.speed, 300.0) << "the highest there is";
    EXPECT_EQ(record.satUsed, 4);
    EXPECT_EQ(record.valid, 1);
    EXPECT_EQ(record.satellite.prn[0], 0) << "cleared, not default";
    EXPECT_EQ(record.time.hour, 0);
    EXPECT_EQ(record.lonLat.lon, 10.0 + 83.33333333333334 / DEGREE);
    _GPS_Data_Without_Sate narrow{};
    _GPS_Satellite satellites{};
    EXPECT_FALSE(device.GetGPSDataWithoutSate(narrow));
    EXPECT_FALSE(device.GetWholeSate(satellites));
}

TEST_F(Drive, HeadingsAreClockwiseFromNorth)
{
    const std::pair<tagLonLat, double> ROWS[] = {
        {{0.0, 1.0}, 0.0},    {{2.0, 1.0}, 45.0},   {{2.0, 0.0}, 90.0},
        {{2.0, -1.0}, 135.0}, {{0.0, -1.0}, 180.0}, {{-2.0, -1.0}, 225.0},
        {{-2.0, 0.0}, 270.0}, {{-2.0, 1.0}, 315.0}, {{0.0, 0.0}, 90.0}};
    FakeMath::Set(DEGREE / 2, DEGREE); // in metres they are headings of the compass
    for (const auto& [to, heading] : ROWS) {
        ASSERT_TRUE(BeginAlong({{0.0, 0.0}, to, {0.5, 0.5}}, 1.0));
        ASSERT_TRUE(device.GetGPSData(record));
        EXPECT_NEAR(record.heading, heading, 1e-12); // of a circle of 360: a few roundings
    }
}

TEST_F(Drive, DiagonalStepsAreMeasuredByTheLongLegAndAThirdOfTheShort)
{
    for (const tagLonLat to : {tagLonLat{Metres(30), Metres(15)},
                               {Metres(15), Metres(30)},
                               {Metres(-30), Metres(15)},
                               {Metres(-15), Metres(-30)}}) {
        ASSERT_TRUE(BeginAlong({{0.0, 0.0}, to}, 7.0));
        ASSERT_TRUE(device.GetGPSData(record));
        EXPECT_NEAR(record.lonLat.lon, to.lon * 7.0 / 35.0, 1e-18); // 30 and a third of 15 are 35
        ASSERT_TRUE(Begin(35.0));
        EXPECT_FALSE(device.GetGPSData(record)) << "a distance equal to the step counts as reached";
        EXPECT_EQ(record.lonLat.lon, to.lon);
    }
}

TEST_F(Drive, BlocksFollowEachOther)
{
    constexpr double STEP = 3.6 * 0.2777777777777778 * 10.0; // [m] as the drive works it out
    const std::vector<tagLonLat> first{{0.0, 0.0}, {Metres(10), 0.0}};
    const std::vector<tagLonLat> skipped{{Metres(10), 0.0}, {Metres(12), 0.0}, {Metres(13), 0.0}};
    const std::vector<tagLonLat> last{{Metres(99), 0.0}, {Metres(22), 0.0}};
    path.blocks = {Block(first, LONG, 3.0), Block(skipped, STEP, 0.0), Block(last, LONG, LAST)};
    path.blocks[2].endPoint = {-200.0, 0.0};
    ASSERT_TRUE(Begin(10.0));
    ASSERT_TRUE(device.GetGPSData(record));
    EXPECT_EQ(record.lonLat.lon, first[1].lon);
    ASSERT_TRUE(device.GetGPSData(record));
    EXPECT_EQ(record.lonLat.lon, skipped[2].lon) << "a block as short as a step is left at once";
    EXPECT_FALSE(device.GetGPSData(record)) << "heads for the second point of a block, from wherever it is";
    EXPECT_EQ(record.lonLat.lon, -200.0) << "and ends on the end point, wherever it lies";
    EXPECT_EQ(record.heading, 270.0) << "of the way there";
    EXPECT_EQ(path.askedFrom, (std::vector<const tagLonLat*>{first.data(), skipped.data()}));
}

const std::vector<tagLonLat> GOOD{{0.0, 0.0}, {Metres(10), 0.0}};
const std::vector<tagLonLat> ONE_POINT{{0.0, 0.0}};
const std::vector<tagLonLat> OFF_EARTH{{0.0, 0.0}, {180.0, 0.0}};
const std::vector<tagLonLat> NOWHERE{{0.0, 0.0}, {0.0, NOT_A_NUMBER}};

TEST_F(Drive, RouteThatFailsEndsInFalseWithTheRecordUntouched)
{
    PathGuid withoutPoints = Block(GOOD, LONG, LAST);
    withoutPoints.points = nullptr;
    const support::Row<std::vector<PathGuid>, bool> ROWS[] = {
        // Whether BeginSimu succeeds.
        {"no block", {}, false},
        {"first block of one point", {Block(ONE_POINT, LONG, LAST)}, false},
        {"first block without points", {withoutPoints}, false},
        {"point off Earth", {Block(OFF_EARTH, LONG, LAST)}, true},
        {"point off Earth at the end of a short block", {Block(OFF_EARTH, 0.0, LAST)}, true},
        {"point that is no number", {Block(NOWHERE, LONG, LAST)}, true},
        {"promised block is missing", {Block(GOOD, LONG, 0.0)}, true},
        {"next block of one point", {Block(GOOD, LONG, 1.0), Block(ONE_POINT, LONG, LAST)}, true},
        {"next block without points", {Block(GOOD, 0.0, 1.0), withoutPoints}, true},
    };
    for (const auto& row : ROWS) {
        SCOPED_TRACE(row.rule);
        path.given = 0;
        path.blocks = row.given;
        ASSERT_EQ(Begin(100.0), row.expected);
        record.altitude = 77.0;
        for (int calls = 0; calls < 3; ++calls) {
            EXPECT_FALSE(device.GetGPSData(record));
            EXPECT_EQ(record.altitude, 77.0);
        }
        path.blocks = {Block(GOOD, LONG, LAST)};
        EXPECT_TRUE(device.BeginSimu()) << "and can begin anew";
        EXPECT_TRUE(device.EndSimu());
    }
}

TEST_F(Drive, BeginsWithSpeedAndTimeStepAboveZeroOnly)
{
    const struct {
        double timeStep;
        double speed;
        bool begins;
    } ROWS[] = {{1.0, 60.0, true},         {1.0, INFINITE, true},  {1.0, 0.0, false},
                {1.0, -1.0, false},        {0.0, 60.0, false},     {-1.0, 60.0, false},
                {-1.0, -60.0, false},      {INFINITE, 60.0, true}, {1.0, NOT_A_NUMBER, true},
                {NOT_A_NUMBER, 60.0, true}};
    path.blocks = {Block(GOOD, LONG, LAST)};
    for (const auto& [timeStep, speed, begins] : ROWS) {
        EXPECT_TRUE(device.SetSimuParam(&path, timeStep, speed));
        EXPECT_EQ(device.BeginSimu(), begins) << timeStep << ' ' << speed;
        record.valid = 0;
        device.GetGPSData(record);
        EXPECT_EQ(record.valid != 0, begins && !std::isnan(speed * timeStep)) << timeStep << ' ' << speed;
    }
}

TEST_F(Drive, EndsUnderWayWithABadStepAndWithoutItsRoute)
{
    path.blocks = {Block(GOOD, LONG, 1.0), Block(GOOD, LONG, LAST)};
    for (const double timeStep : {0.0, -1.0, NOT_A_NUMBER}) {
        ASSERT_TRUE(Begin(1.0));
        ASSERT_TRUE(device.GetGPSData(record));
        device.SetSimuParam(&path, timeStep, 3.6);
        EXPECT_FALSE(device.GetGPSData(record));
    }
    ASSERT_TRUE(Begin(100.0));
    EXPECT_TRUE(device.SetSimuParam(nullptr, 100.0, 3.6));
    EXPECT_FALSE(device.GetGPSData(record)) << "taken away, so that there is no next block";
    path.throws = true;
    ASSERT_TRUE(Begin(100.0));
    EXPECT_FALSE(device.GetGPSData(record));
    EXPECT_FALSE(device.GetGPSData(record)) << "and nothing of the half-filled block is read";
}

TEST_F(Drive, OrderOfCalls)
{
    path.blocks = {Block(GOOD, LONG, LAST)};
    EXPECT_FALSE(device.BeginSimu());
    EXPECT_FALSE(device.GetGPSData(record));
    EXPECT_FALSE(device.EndSimu());
    EXPECT_TRUE(device.SetSimuParam(nullptr, 1.0, 3.6));
    EXPECT_FALSE(device.BeginSimu()) << "without a route";
    EXPECT_TRUE(device.SetSimuParam(&path, 1.0, 3.6));
    EXPECT_FALSE(device.GetGPSData(record)) << "before BeginSimu";
    path.starts = 0;
    EXPECT_FALSE(device.BeginSimu()) << "the route won't start";
    path.starts = 1;
    EXPECT_TRUE(device.BeginSimu());
    EXPECT_TRUE(device.GetGPSData(record));
    EXPECT_TRUE(device.BeginSimu()) << "anew, from the first point";
    EXPECT_TRUE(device.GetGPSData(record));
    EXPECT_EQ(record.lonLat.lon, Metres(10) * (1.0 / 10.0));
    EXPECT_TRUE(device.SetSimuParam(&path, 1.0, 0.0));
    EXPECT_FALSE(device.BeginSimu());
    EXPECT_TRUE(device.SetSimuParam(&path, 1.0, 3.6));
    EXPECT_TRUE(device.GetGPSData(record)) << "no speed begins nothing and ends nothing";
    EXPECT_TRUE(device.EndSimu());
    EXPECT_FALSE(device.BeginSimu()) << "nothing of the drive is left";
}

TEST_F(Drive, CopiesShareIt)
{
    ASSERT_TRUE(BeginAlong(GOOD, 4.0));
    CGPSSimuDevice copy(device);
    CGPSSimuDevice assigned;
    assigned = copy;
    assigned = *&assigned;
    EXPECT_TRUE(device.GetGPSData(record));
    EXPECT_TRUE(assigned.GetGPSData(record));
    EXPECT_FALSE(copy.GetGPSData(record)) << "the third step arrives";
    EXPECT_TRUE(device.EndSimu());
    EXPECT_FALSE(copy.GetGPSData(record)) << "ended for all";
    EXPECT_FALSE(copy.BeginSimu()) << "the route is its owner's again";
    EXPECT_TRUE(copy.EndSimu()) << "and yet there";
}

} // namespace
