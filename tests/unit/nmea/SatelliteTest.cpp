// GSA, and GSV groups over their accumulator.
#include <initializer_list>
#include <vector>

#include "tests/unit/nmea/ParserFeed.h"

namespace
{

// ---- GSA

Change Gsa(std::uint8_t valid, std::initializer_list<std::size_t> used)
{
    const std::vector<std::size_t> numbers(used);
    return [=](_GPS_Data& record) {
        record.mask |= 0x060U;
        record.valid = valid;
        std::memset(record.satellite.used, 0, sizeof record.satellite.used);
        for (const std::size_t number : numbers) {
            record.satellite.used[number - 1] = 1;
        }
    };
}

Change Dilutions(double pdop, double hdop, double vdop)
{
    return [=](_GPS_Data& record) {
        record.pdop = pdop;
        record.hdop = hdop;
        record.vdop = vdop;
    };
}

class GsaWalk : public WalkTest
{
};

TEST_P(GsaWalk, WritesThisAndNothingElse)
{
    Check();
}

const WalkCase GSA_CASES[] = {
    {"ModeThree", "GPGSA,A,3,04,05,,09,12,,,24,,,,,2.5,1.3,2.1",
     Also(Gsa(1, {4, 5, 9, 12, 24}), Dilutions(2.5, 1.3, 2.1))},
    {"ModeTwo", "GPGSA,A,2,04,,,,,,,,,,,,2.5,1.3,2.1", Also(Gsa(1, {4}), Dilutions(2.5, 1.3, 2.1))},
    {"ModeOne", "GPGSA,A,1,,,,,,,,,,,,,2.5,1.3,2.1", Also(Gsa(0, {}), Dilutions(2.5, 1.3, 2.1))},
    {"ModeFour", "GPGSA,A,4,04,,,,,,,,,,,,2.5,1.3,2.1", Also(Gsa(0, {4}), Dilutions(2.5, 1.3, 2.1))},
    {"ModeEmptyRefuses", "GPGSA,A,,04,,,,,,,,,,,,2.5,1.3,2.1", nullptr},
    {"ModeMissingRefuses", "GPGSA,A", nullptr},
    {"ModeEmptyAsLastFieldCounts", "GPGSA,A,", Gsa(0, {})},
    {"ModeAloneKeepsTheDilutions", "GPGSA,,3", Gsa(1, {})},
    {"EmptyDilutionsAreZero", "GPGSA,A,3,04,,,,,,,,,,,,,,", Also(Gsa(1, {4}), Dilutions(0.0, 0.0, 0.0))},
    {"OneNumberIsVdop", "GPGSA,A,3,2.1", Also(Gsa(1, {}), [](_GPS_Data& record) { record.vdop = 2.1; })},
    {"TwoNumbersAreHdopAndVdop", "GPGSA,A,3,07,08",
     Also(Gsa(1, {}),
          [](_GPS_Data& record) {
              record.hdop = 7.0;
              record.vdop = 8.0;
          })},
    {"ThreeNumbersAreDilutions", "GPGSA,A,3,7,8,9", Also(Gsa(1, {}), Dilutions(7.0, 8.0, 9.0))},
    {"DilutionsStandLastInAShortList", "GPGSA,A,3,33,7,8,9", Also(Gsa(1, {33}), Dilutions(7.0, 8.0, 9.0))},
    {"AndInALongOne", "GPGSA,A,3,1,2,3,4,5,6,7,8,9,10,11,12,13,7,8,9",
     Also(Gsa(1, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13}), Dilutions(7.0, 8.0, 9.0))},
    {"FurtherFieldShiftsAll", "GPGSA,A,3,04,,,,,,,,,,,,5.5,1.3,2.1,1",
     Also(Gsa(1, {4, 5}), Dilutions(1.3, 2.1, 1.0))},
    {"NumbersWithoutASlotArePassedOver", "GPGSA,A,3,0,64,65,-1,193,99999999999,x,1,2.5,1.3,2.1",
     Also(Gsa(1, {64, 1}), Dilutions(2.5, 1.3, 2.1))},
};
INSTANTIATE_TEST_SUITE_P(Rules, GsaWalk, testing::ValuesIn(GSA_CASES), RuleName<WalkCase>);

// ---- GSV

/// A message with its entries' data made from their numbers.
std::string Message(int total, int number, int viewCount, std::initializer_list<int> satellites)
{
    std::string body =
        "GPGSV," + std::to_string(total) + "," + std::to_string(number) + "," + std::to_string(viewCount);
    for (const int satellite : satellites) {
        for (const int value : {satellite, satellite + 10, satellite + 290, satellite + 20}) {
            body += "," + std::to_string(value);
        }
    }
    return body;
}

TEST(GsvGroup, IsPublishedWholeWithItsLastMessage)
{
    ParserFeed feed;
    feed.Mark();
    const RecordBytes before = BytesOf(feed.record);
    ASSERT_TRUE(feed.Take(Message(3, 1, 11, {1, 2, 3, 64})));
    ASSERT_TRUE(feed.Take(Message(3, 2, 11, {30, 29, 28, 27})));
    EXPECT_EQ(BytesOf(feed.record), before);
    ClearRecord(feed.record); // an epoch's end doesn't touch the group
    feed.Mark();
    ASSERT_TRUE(feed.Take(Message(3, 3, 12, {7, 40, 9})));

    ParserFeed expected;
    expected.Mark();
    _GPS_Satellite& satellite = expected.record.satellite;
    expected.record.mask |= 0x020U;
    satellite.viewCount = 12;
    satellite.listedCount = 11;
    for (std::size_t i = 0; i < GPS_SATELLITE_SLOTS; ++i) {
        satellite.prn[i] = 255;
        satellite.elevation[i] = satellite.snr[i] = 0;
        satellite.azimuth[i] = 0;
    }
    RecordBytes used{};
    for (const int number : {1, 2, 3, 64, 30, 29, 28, 27, 7, 40, 9}) {
        const auto slot = static_cast<std::size_t>(number) - 1;
        satellite.prn[slot] = static_cast<std::uint8_t>(number);
        satellite.elevation[slot] = static_cast<std::uint8_t>(number + 10);
        satellite.azimuth[slot] = static_cast<std::uint16_t>(number + 290);
        satellite.snr[slot] = static_cast<std::uint8_t>(number + 20);
        used[slot] = ParserFeed::MARK; // a listed satellite keeps its flag
    }
    std::memcpy(satellite.used, used.data(), sizeof satellite.used);
    EXPECT_EQ(BytesOf(feed.record), BytesOf(expected.record));
}

struct GroupCase {
    const char* rule;
    std::vector<std::string> bodies;
    std::string taken;     // '1' or '0' for each
    std::string published; // satellites in view, "/", entries, ":" and the numbers listed
};

void PrintTo(const GroupCase& group, std::ostream* out)
{
    for (const std::string& body : group.bodies) {
        *out << '\n' << body;
    }
}

class GsvGroups : public testing::TestWithParam<GroupCase>
{
};

TEST_P(GsvGroups, ArePublished)
{
    ParserFeed feed;
    std::string taken;
    for (const std::string& body : GetParam().bodies) {
        taken += feed.Take(body) ? '1' : '0';
    }
    const _GPS_Satellite& satellite = feed.record.satellite;
    std::string published =
        std::to_string(satellite.viewCount) + "/" + std::to_string(satellite.listedCount) + ":";
    for (std::size_t slot = 0; slot < GPS_SATELLITE_SLOTS; ++slot) {
        if (satellite.prn[slot] != 255) {
            EXPECT_EQ(satellite.prn[slot], slot + 1);
            published += " " + std::to_string(satellite.prn[slot]);
        }
    }
    EXPECT_EQ(taken, GetParam().taken);
    EXPECT_EQ(published, GetParam().published);
}

/// A group of three with a middle message that is refused.
std::vector<std::string> Around(const std::string& middle)
{
    return {Message(3, 1, 12, {1}), middle, Message(3, 3, 11, {9})};
}

const GroupCase GROUP_CASES[] = {
    {"OneMessageBeginsAfresh", {Message(2, 1, 8, {1}), Message(1, 1, 2, {5, 6})}, "11", "2/2: 5 6"},
    {"PublishingClears", {Message(2, 2, 4, {1, 2}), Message(2, 2, 1, {3})}, "11", "1/1: 3"},
    {"LostLastFlowsOn",
     {Message(2, 1, 8, {1, 2}), Message(2, 1, 7, {5}), Message(2, 2, 7, {7})},
     "111",
     "7/4: 1 2 5 7"},
    {"RepeatCountsTwice",
     {Message(2, 1, 4, {1}), Message(2, 1, 4, {1}), Message(2, 2, 4, {3})},
     "111",
     "4/3: 1 3"},
    {"Number64IsTheLast", {Message(2, 2, 1, {64, 1})}, "1", "1/2: 1 64"},
    {"Number65Drops", Around(Message(3, 2, 12, {5, 65, 6})), "101", "11/1: 9"},
    {"Number120Drops", Around(Message(3, 2, 12, {5, 120})), "101", "11/1: 9"},
    {"NumberZeroDrops", Around(Message(3, 2, 12, {0})), "101", "11/1: 9"},
    {"NumberBelowZeroDrops", Around(Message(3, 2, 12, {-7})), "101", "11/1: 9"},
    {"ElevationBeforeANumberDrops", Around("GPGSV,3,2,4,,45,100,30,3"), "101", "11/1: 9"},
    {"AzimuthBeforeANumberDrops", Around("GPGSV,3,2,4,,,100,"), "101", "11/1: 9"},
    {"SignalBeforeANumberDrops", Around("GPGSV,3,2,4,,,,30"), "101", "11/1: 9"},
    {"EmptyNumberDoesNotCount", {"GPGSV,2,2,4,2,45,100,30,,46,101,31"}, "1", "4/1: 2"},
    {"ViewCount64Passes", {Message(1, 1, 64, {2})}, "1", "64/1: 2"},
    {"ViewCount65Drops", Around(Message(3, 2, 65, {2})), "101", "11/1: 9"},
    {"EmptyViewCountKeepsTheLatest", {Message(2, 1, 9, {1}), "GPGSV,2,2,,02,1,2,3"}, "11", "9/2: 1 2"},
    {"MessageThreeOfTwoClearsNothing", Around(Message(2, 3, 5, {2})), "101", "11/2: 1 9"},
    {"MessageZeroClearsNothing", Around(Message(2, 0, 5, {2})), "101", "11/2: 1 9"},
    {"EmptyTotalClearsNothing", Around("GPGSV,,1,5,2,1,2,3"), "101", "11/2: 1 9"},
    {"EmptyMessageNumberPublishes", {Message(3, 1, 4, {1}), "GPGSV,3,,5,02,1,2,3"}, "11", "5/2: 1 2"},
    {"NoCommaPublishes", {Message(3, 1, 4, {1}), "GPGSV"}, "11", "4/1: 1"},
    {"FifthEntryIsNotRead", {Message(1, 1, 5, {1, 2, 3, 4, 99})}, "1", "5/4: 1 2 3 4"},
};
INSTANTIATE_TEST_SUITE_P(Rules, GsvGroups, testing::ValuesIn(GROUP_CASES), RuleName<GroupCase>);

TEST(GsvEntry, DataBehindAnEmptyNumberGoesToTheEntryBefore)
{
    ParserFeed feed;
    ASSERT_TRUE(feed.Take("GPGSV,1,1,1,05,10,100,30,,45,,"));
    EXPECT_EQ(feed.record.satellite.elevation[4], 45);
    EXPECT_EQ(feed.record.satellite.azimuth[4], 100);
    EXPECT_EQ(feed.record.satellite.snr[4], 0); // the last field, the asterisk, is present
}

TEST(GsvEntry, DataIsCutToItsWidth)
{
    ParserFeed feed;
    ASSERT_TRUE(feed.Take("GPGSV,1,1,1,05,300,65537,-1"));
    EXPECT_EQ(feed.record.satellite.elevation[4], 300 - 256);
    EXPECT_EQ(feed.record.satellite.azimuth[4], 1);
    EXPECT_EQ(feed.record.satellite.snr[4], 255);
}

TEST(GsvGroup, WrongChecksumLeavesItUnpublishedAndTheNextStartsOnTop)
{
    ParserFeed feed;
    ASSERT_TRUE(feed.Take(Message(2, 1, 4, {1})));
    std::string last = Sentence(Message(2, 2, 4, {2}));
    last[last.find('*') + 2] ^= 1;
    EXPECT_FALSE(feed.TakeRaw(last));
    ASSERT_TRUE(feed.Take(Message(2, 1, 4, {3})));
    ASSERT_TRUE(feed.Take(Message(2, 2, 4, {4})));
    EXPECT_EQ(feed.record.satellite.listedCount, 3);
    EXPECT_EQ(feed.record.satellite.prn[0], 1);
    EXPECT_EQ(feed.record.satellite.prn[1], 255);
}

TEST(GsvGroup, ListedCountWrapsAt256)
{
    ParserFeed feed;
    for (int i = 0; i < 64; ++i) {
        ASSERT_TRUE(feed.Take(Message(2, 1, 4, {1, 2, 3, 4})));
    }
    ASSERT_TRUE(feed.Take(Message(2, 2, 4, {5, 6, 7})));
    EXPECT_EQ(feed.record.satellite.listedCount, 3);
}

TEST(GsvGroup, FeedsWithTheirOwnAccumulatorsDontMix)
{
    ParserFeed one;
    ParserFeed other;
    ASSERT_TRUE(one.Take(Message(2, 1, 4, {1})));
    ASSERT_TRUE(other.Take(Message(2, 1, 4, {2})));
    ASSERT_TRUE(one.Take(Message(2, 2, 4, {3})));
    EXPECT_EQ(one.record.satellite.listedCount, 2);
    EXPECT_EQ(one.record.satellite.prn[1], 255);
}

TEST(GsvGroup, CallersThatNameNoAccumulatorShareOne)
{
    const GPS::CNMEAParser one;
    const GPS::CNMEAParser other;
    _GPS_Data record;
    const std::string first = Sentence(Message(2, 1, 4, {1}));
    const std::string last = Sentence(Message(2, 2, 4, {2}));
    ASSERT_TRUE(one.Parse(first.c_str(), static_cast<int>(first.size()), 0, record));
    ASSERT_TRUE(other.Parse(last.c_str(), static_cast<int>(last.size()), 0, record));
    EXPECT_EQ(record.satellite.listedCount, 2);
}

TEST(GsvGroup, UsedStaysForListedSatellitesAlone)
{
    ParserFeed feed;
    ASSERT_TRUE(feed.Take("GPGSA,A,3,01,02,03,2.5,1.3,2.1"));
    ASSERT_TRUE(feed.Take(Message(1, 1, 2, {2, 4})));
    EXPECT_EQ(feed.record.satellite.used[0], 0);
    EXPECT_EQ(feed.record.satellite.used[1], 1);
    EXPECT_EQ(feed.record.satellite.used[3], 0);
}

} // namespace
