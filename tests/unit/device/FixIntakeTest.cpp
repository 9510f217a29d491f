// What becomes of a closed epoch: records, moves, losses, and when each is told.
#include <cmath>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/FakeWorld.h"
#include "tests/unit/device/ReceiverFeed.h"

namespace
{

using support::FixAt;
using support::NoFix;
using Ids = std::vector<std::uint16_t>;

constexpr double LIMIT = 5e-5; // [deg]
const double ABOVE = std::nextafter(LIMIT, 1.0);

class FixIntake : public support::FakeWorld
{
protected:
    /// Result: the events of this epoch.
    Ids Take(_GPS_Data record)
    {
        device.TakeFix(record);
        return std::exchange(FakeEventHouse::ids, {});
    }

    Ids TakeNoneAt(std::uint32_t milliseconds)
    {
        FakeTickCount::Set(milliseconds);
        return Take(NoFix());
    }

    GPS::CGPSCOMDeviceImpl device;
};

TEST_F(FixIntake, MoveIsMoreThanTheLimit)
{
    const struct {
        const char* rule;
        tagLonLat before;
        tagLonLat now;
        Ids events;
    } ROWS[] = {
        {"both at the limit", {0.0, 0.0}, {LIMIT, -LIMIT}, {}},
        {"eastward above it", {0.0, 0.0}, {ABOVE, 0.0}, {1002}},
        {"westward", {ABOVE, 0.0}, {0.0, 0.0}, {1002}},
        {"northward", {0.0, 0.0}, {0.0, ABOVE}, {1002}},
        {"southward", {0.0, ABOVE}, {0.0, 0.0}, {1002}},
        {"both above are one move", {0.0, 0.0}, {1.0, 1.0}, {1002}},
        {"across the meridian is far", {179.99999, 0.0}, {-179.99999, 0.0}, {1002}},
    };
    for (const auto& row : ROWS) {
        Take(FixAt(row.before.lon, row.before.lat));
        EXPECT_EQ(Take(FixAt(row.now.lon, row.now.lat)), row.events) << row.rule;
    }
}

TEST_F(FixIntake, LossLastsMoreThanSixtyWholeSeconds)
{
    const struct {
        const char* rule;
        std::uint32_t lostAt; // [ms]
        std::uint32_t now;    // [ms]
        Ids events;
    } ROWS[] = {
        {"sixty are not enough", 1999, 61999, {}},
        {"sixty-one are, however short", 1999, 62000, {1003}},
        {"fractions don't count", 1000, 61999, {}},
        {"a wrapped count is long after", 0xFFFFFFFF, 1000, {1003}}, // by nearly 2 to the 32 seconds
    };
    for (const auto& row : ROWS) {
        Take(FixAt(0.0, 0.0));
        EXPECT_EQ(TakeNoneAt(row.lostAt), Ids{}) << row.rule;
        EXPECT_EQ(TakeNoneAt(row.now), Ids{}) << row.rule << ": the second epoch tests nothing";
        EXPECT_EQ(TakeNoneAt(row.now), row.events) << row.rule;
    }
}

TEST_F(FixIntake, LossIsToldAtEveryEpochAndCountsAnewAfterAFix)
{
    EXPECT_EQ(TakeNoneAt(60999), Ids{}) << "never had a fix: counts from system start";
    EXPECT_EQ(TakeNoneAt(61000), Ids{1003});
    EXPECT_EQ(TakeNoneAt(61000), Ids{1003});
    EXPECT_EQ(Take(FixAt(0.0, 0.0)), Ids{});
    EXPECT_EQ(TakeNoneAt(64000), Ids{});
    EXPECT_EQ(TakeNoneAt(65000), Ids{});
    EXPECT_EQ(TakeNoneAt(124000), Ids{});
    EXPECT_EQ(TakeNoneAt(125000), Ids{1003});
}

/// The events of a feed, each with the longitude of the device's epoch at that moment, 0 for no fix.
class EventMoment : public support::FakeWorld
{
protected:
    using Moments = std::vector<std::pair<int, double>>;

    EventMoment()
    {
        FakeEventHouse::onSend = [this](const event::CustomEvent& sent) {
            _GPS_Data last;
            _GPS_Data_Without_Sate narrow{};
            _GPS_Satellite satellite{};
            const bool valid = receiver.device.IsGPSValid();
            moments.emplace_back(sent.Id(), receiver.Current().lonLat.lon);
            EXPECT_EQ(receiver.device.GetGPSDataWithoutSate(narrow), valid);
            EXPECT_EQ(receiver.device.GetWholeSate(satellite), valid);
            EXPECT_TRUE(receiver.device.GetLastValidData(last));
            EXPECT_TRUE(!valid || last.lonLat.lon == moments.back().second);
            EXPECT_EQ(receiver.device.GetVehicleCurrMoveState() == MOVESTATE_UNKNOWN, !valid);
            EXPECT_EQ(receiver.device.GetVehicleCurrHeadingState() == HEADINGSTATE_UNKNOWN, !valid);
        };
    }

    Moments Feed(const std::string& chunk)
    {
        receiver.Feed(chunk);
        return std::exchange(moments, {});
    }

    ReceiverFeed receiver;
    Moments moments;
};

TEST_F(EventMoment, DeviceHoldsWhatEachEventPromises)
{
    EXPECT_EQ(Feed(support::Gga(121, 31)), (Moments{{1002, 121.0}, {1001, 121.0}}));
    EXPECT_EQ(Feed(support::Gga(122, 31, 0)), (Moments{{1004, 121.0}, {1001, 0.0}}))
        << "still the one before";
    EXPECT_EQ(Feed(support::Gga(122, 31, 0)), (Moments{{1004, 0.0}, {1001, 0.0}})) << "at every such epoch";
    FakeTickCount::Set(61000);
    EXPECT_EQ(Feed(support::Gga(122, 31, 0)), (Moments{{1004, 0.0}, {1003, 0.0}, {1001, 0.0}}));
    EXPECT_EQ(Feed(support::Gga(123, 31)), (Moments{{1002, 123.0}, {1001, 123.0}}));
}

TEST_F(EventMoment, EventHouseThatFailsCostsTheEventAlone)
{
    FakeEventHouse::onSend = [](const event::CustomEvent&) { throw std::bad_alloc(); };
    receiver.Feed(support::Vtg("50.0") + support::Gga(121, 31) + support::Gga(122, 31));
    EXPECT_EQ(FakeEventHouse::ids, (Ids{1002, 1001, 1002, 1001}));
    EXPECT_EQ(receiver.Current().lonLat.lon, 122.0);
    EXPECT_EQ(receiver.Current().speed, 0.0) << "the record was emptied behind the first";
}

} // namespace
