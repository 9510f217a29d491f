// What the last three epochs tell of the vehicle.
#include <cmath>
#include <limits>

#include "GpsLib/device/CGPSCOMDeviceImpl.h"
#include "tests/support/FakeWorld.h"
#include "tests/support/Row.h"
#include "tests/support/Sentence.h"

namespace
{

using support::operator<<;

constexpr double INF = std::numeric_limits<double>::infinity();
constexpr double NO_NUMBER = std::numeric_limits<double>::quiet_NaN();

class VehicleState : public support::FakeWorld
{
protected:
    /// Takes three epochs in. change: makes of each what it is; 0 is the newest.
    template <class CHANGE>
    void TakeThree(CHANGE change)
    {
        for (int epoch = 2; epoch >= 0; --epoch) {
            _GPS_Data record = support::FixAt(121.0, 31.0);
            change(epoch, record);
            device.TakeFix(record);
        }
    }

    GPS::CGPSCOMDeviceImpl device;
};

struct MoveCase {
    const char* rule;
    double speeds[3]; // [km/h] newest first
    MOVESTATETYPE state;
};

const MoveCase MOVE_CASES[] = {
    {"AllBelowTenIsSlow", {9.9, 0.0, 9.999}, MOVESTATE_SLOW},
    {"TenIsNotSlow", {10.0, 9.0, 9.0}, MOVESTATE_STEADY},
    {"OldestCountsForSlow", {8.0, 9.0, 12.0}, MOVESTATE_STEADY},
    {"MiddleCountsForSlow", {1.0, 12.0, 1.0}, MOVESTATE_CHANGING},
    {"FiveIsSteady", {20.0, 25.0, 30.0}, MOVESTATE_STEADY},
    {"SixIsNot", {20.0, 26.0, 32.0}, MOVESTATE_CHANGING},
    {"FallingCountsLikeRising", {32.0, 26.0, 20.0}, MOVESTATE_CHANGING},
    {"NewerStepAloneMakesSteady", {30.0, 30.0, 50.0}, MOVESTATE_STEADY},
    {"OlderStepAloneMakesSteady", {50.0, 30.0, 30.0}, MOVESTATE_STEADY},
    {"NewestAndOldestAreNotCompared", {30.0, 50.0, 30.0}, MOVESTATE_CHANGING},
    {"WholeKmhCount", {25.9, 20.0, 30.0}, MOVESTATE_STEADY},   // 25 and 20
    {"CutIsTowardsZero", {-0.9, 5.9, 99.0}, MOVESTATE_STEADY}, // 0 and 5
    {"NoNumberIsZero", {NO_NUMBER, NO_NUMBER, NO_NUMBER}, MOVESTATE_SLOW},
    {"HugeSpeedsAreAllTheLargest", {1e300, INF, 2147483647.0}, MOVESTATE_STEADY},
    {"LargestAndSmallestAreFarApart", {INF, -INF, INF}, MOVESTATE_CHANGING},
};

class MoveState : public VehicleState, public testing::WithParamInterface<MoveCase>
{
};

TEST_P(MoveState, FollowsTheSpeeds)
{
    TakeThree([](int epoch, _GPS_Data& record) { record.speed = GetParam().speeds[epoch]; });
    EXPECT_EQ(device.GetVehicleCurrMoveState(), GetParam().state);
}

INSTANTIATE_TEST_SUITE_P(Rules, MoveState, testing::ValuesIn(MOVE_CASES), support::RuleName());

struct HeadingCase {
    const char* rule;
    double headings[3]; // [deg] newest first
    HEADINGSTATETYPE state;
};

const double BELOW_FIVE = std::nextafter(5.0, 0.0);

const HeadingCase HEADING_CASES[] = {
    {"BelowFiveOnBothIsSteady", {BELOW_FIVE, 0.0, BELOW_FIVE}, HEADINGSTATE_STEADY},
    {"FiveOnTheNewerIsATurn", {5.0, 0.0, 0.0}, HEADINGSTATE_TURNING},
    {"FiveOnTheOlderIsATurn", {0.0, 0.0, 5.0}, HEADINGSTATE_TURNING},
    {"NewestAndOldestAreNotCompared", {8.0, 4.0, 0.0}, HEADINGSTATE_STEADY},
    {"AcrossNorthIsNear", {359.0, 1.0, 359.0}, HEADINGSTATE_STEADY},
    {"AcrossNorthByFiveIsATurn", {2.5, 357.5, 357.5}, HEADINGSTATE_TURNING},
    {"AboutTurnIsATurn", {180.0, 0.0, 0.0}, HEADINGSTATE_TURNING},
    {"NoNumberIsATurn", {NO_NUMBER, 0.0, 0.0}, HEADINGSTATE_TURNING},
    {"InfinityIsATurn", {INF, INF, INF}, HEADINGSTATE_TURNING},
};

class HeadingState : public VehicleState, public testing::WithParamInterface<HeadingCase>
{
};

TEST_P(HeadingState, FollowsTheHeadings)
{
    TakeThree([](int epoch, _GPS_Data& record) { record.heading = GetParam().headings[epoch]; });
    EXPECT_EQ(device.GetVehicleCurrHeadingState(), GetParam().state);
}

INSTANTIATE_TEST_SUITE_P(Rules, HeadingState, testing::ValuesIn(HEADING_CASES), support::RuleName());

TEST_F(VehicleState, NewestEpochAloneIsAskedForAFix)
{
    EXPECT_EQ(device.GetVehicleCurrMoveState(), MOVESTATE_UNKNOWN);
    EXPECT_EQ(device.GetVehicleCurrHeadingState(), HEADINGSTATE_UNKNOWN);
    TakeThree([](int epoch, _GPS_Data& record) { record.valid = epoch == 0 ? 1 : 0; });
    EXPECT_EQ(device.GetVehicleCurrMoveState(), MOVESTATE_SLOW);
    EXPECT_EQ(device.GetVehicleCurrHeadingState(), HEADINGSTATE_STEADY);
    TakeThree([](int epoch, _GPS_Data& record) { record.valid = epoch == 0 ? 0 : 1; });
    EXPECT_EQ(device.GetVehicleCurrMoveState(), MOVESTATE_UNKNOWN);
    EXPECT_EQ(device.GetVehicleCurrHeadingState(), HEADINGSTATE_UNKNOWN);
}

TEST_F(VehicleState, PositionOnTheEdgeInAnyEpochIsUnknown)
{
    const double lon = std::nextafter(180.0, 0.0);
    const double lat = std::nextafter(90.0, 0.0);
    const struct {
        tagLonLat position;
        bool known;
    } ROWS[] = {{{180.0, 0.0}, false},    {{-180.0, 0.0}, false}, {{0.0, 90.0}, false},
                {{0.0, -90.0}, false},    {{lon, lat}, true},     {{-lon, -lat}, true},
                {{0.0, NO_NUMBER}, false}};
    for (const auto& row : ROWS) {
        for (int place = 0; place < 3; ++place) {
            TakeThree([&row, place](int epoch, _GPS_Data& record) {
                record.lonLat = epoch == place ? row.position : record.lonLat;
            });
            EXPECT_EQ(device.GetVehicleCurrMoveState() != MOVESTATE_UNKNOWN, row.known);
            EXPECT_EQ(device.GetVehicleCurrHeadingState() != HEADINGSTATE_UNKNOWN, row.known);
        }
    }
}

} // namespace
