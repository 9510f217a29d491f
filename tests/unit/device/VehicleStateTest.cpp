// What the last three epochs tell of the vehicle.
#include <cmath>
#include <limits>
#include <utility>

#include "GpsLib/device/CGPSCOMDeviceImpl.h"
#include "tests/support/FakeWorld.h"
#include "tests/support/Row.h"
#include "tests/support/Sentence.h"

namespace
{

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

    void ExpectBothKnown(bool known)
    {
        EXPECT_EQ(device.GetVehicleCurrMoveState() != MOVESTATE_UNKNOWN, known);
        EXPECT_EQ(device.GetVehicleCurrHeadingState() != HEADINGSTATE_UNKNOWN, known);
    }

    GPS::CGPSCOMDeviceImpl device;
};

TEST_F(VehicleState, MovesAsTheSpeedsSay)
{
    const support::Row<double[3], MOVESTATETYPE> ROWS[] = {
        // [km/h] newest first
        {"all below ten is slow", {9.9, 9.5, 9.999}, MOVESTATE_SLOW},
        {"ten is not", {10.0, 9.0, 9.0}, MOVESTATE_STEADY},
        {"the oldest counts for slow", {8.0, 9.0, 10.0}, MOVESTATE_STEADY},
        {"the middle one too", {1.0, 10.0, 1.0}, MOVESTATE_CHANGING},
        {"changes of five are steady", {20.0, 25.0, 30.0}, MOVESTATE_STEADY},
        {"changes of six are not", {20.0, 26.0, 32.0}, MOVESTATE_CHANGING},
        {"falling counts like rising", {32.0, 26.0, 20.0}, MOVESTATE_CHANGING},
        {"the newer step alone makes steady", {30.0, 30.0, 50.0}, MOVESTATE_STEADY},
        {"the older one too", {50.0, 30.0, 30.0}, MOVESTATE_STEADY},
        {"newest and oldest are not compared", {30.0, 50.0, 30.0}, MOVESTATE_CHANGING},
        {"whole km/h count, cut towards zero", {-0.9, 5.9, 99.0}, MOVESTATE_STEADY}, // 0 and 5
        {"no number is zero", {NO_NUMBER, NO_NUMBER, NO_NUMBER}, MOVESTATE_SLOW},
        {"huge speeds are all the largest", {1e300, INF, 2147483647.0}, MOVESTATE_STEADY},
        {"largest and smallest are far apart", {INF, -INF, INF}, MOVESTATE_CHANGING},
    };
    for (const auto& row : ROWS) {
        TakeThree([&row](int epoch, _GPS_Data& record) { record.speed = row.given[epoch]; });
        EXPECT_EQ(device.GetVehicleCurrMoveState(), row.expected) << row.rule;
    }
}

TEST_F(VehicleState, TurnsAsTheHeadingsSay)
{
    const double belowFive = std::nextafter(5.0, 0.0);
    const support::Row<double[3], HEADINGSTATETYPE> ROWS[] = {
        // [deg] newest first
        {"below five on both is steady", {belowFive, 0.0, belowFive}, HEADINGSTATE_STEADY},
        {"five on the newer is a turn", {5.0, 0.0, 0.0}, HEADINGSTATE_TURNING},
        {"five on the older is a turn", {0.0, 0.0, 5.0}, HEADINGSTATE_TURNING},
        {"newest and oldest are not compared", {8.0, 4.0, 0.0}, HEADINGSTATE_STEADY},
        {"across north is near", {359.0, 1.0, 359.0}, HEADINGSTATE_STEADY},
        {"across north by five is a turn", {2.5, 357.5, 357.5}, HEADINGSTATE_TURNING},
        {"an about turn is a turn", {180.0, 0.0, 0.0}, HEADINGSTATE_TURNING},
        {"no number is a turn", {NO_NUMBER, 0.0, 0.0}, HEADINGSTATE_TURNING},
        {"infinity is a turn", {INF, INF, INF}, HEADINGSTATE_TURNING},
    };
    for (const auto& row : ROWS) {
        TakeThree([&row](int epoch, _GPS_Data& record) { record.heading = row.given[epoch]; });
        EXPECT_EQ(device.GetVehicleCurrHeadingState(), row.expected) << row.rule;
    }
}

TEST_F(VehicleState, PositionOnTheEdgeInAnyEpochIsUnknown)
{
    const double lon = std::nextafter(180.0, 0.0);
    const double lat = std::nextafter(90.0, 0.0);
    const std::pair<tagLonLat, bool> ROWS[] = {
        {{180.0, 0.0}, false}, {{-180.0, 0.0}, false}, {{0.0, 90.0}, false},      {{0.0, -90.0}, false},
        {{lon, lat}, true},    {{-lon, -lat}, true},   {{0.0, NO_NUMBER}, false}, {{NO_NUMBER, 0.0}, false}};
    for (const auto& [position, known] : ROWS) {
        for (int place = 0; place < 3; ++place) {
            TakeThree([&position = position, place](int epoch, _GPS_Data& record) {
                record.lonLat = epoch == place ? position : record.lonLat;
            });
            ExpectBothKnown(known);
        }
    }
}

} // namespace
