// GSV groups over their accumulator.
#include <initializer_list>
#include <vector>

#include "tests/unit/nmea/ParserFeed.h"

namespace
{

using support::operator<<;

/// A message with its entries' data made from their numbers.
std::string Gsv(int total, int number, int viewCount, std::initializer_list<int> satellites)
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
    const auto before = BytesOf(feed.record);
    ASSERT_TRUE(feed.Take(Gsv(3, 1, 11, {1, 2, 3, 64})));
    ASSERT_TRUE(feed.Take(Gsv(3, 2, 11, {30, 29, 28, 27})));
    EXPECT_EQ(BytesOf(feed.record), before);
    ClearRecord(feed.record); // an epoch's end doesn't touch the group
    feed.Mark();
    ASSERT_TRUE(feed.Take(Gsv(3, 3, 12, {7, 40, 9})));

    ParserFeed expected;
    expected.Mark();
    _GPS_Satellite& satellite = expected.record.satellite;
    expected.record.mask |= 0x020U;
    satellite = expected.accumulator; // which is empty
    satellite.viewCount = 12;
    satellite.listedCount = 11;
    for (const int number : {1, 2, 3, 64, 30, 29, 28, 27, 7, 40, 9}) {
        const auto slot = static_cast<std::size_t>(number) - 1;
        satellite.prn[slot] = static_cast<std::uint8_t>(number);
        satellite.elevation[slot] = static_cast<std::uint8_t>(number + 10);
        satellite.azimuth[slot] = static_cast<std::uint16_t>(number + 290);
        satellite.snr[slot] = static_cast<std::uint8_t>(number + 20);
        satellite.used[slot] = ParserFeed::MARK; // a listed satellite keeps its flag
    }
    EXPECT_EQ(BytesOf(feed.record), BytesOf(expected.record));
}

struct GroupCase {
    const char* rule;
    std::vector<std::string> bodies;
    std::string taken;     // '1' or '0' for each
    std::string published; // satellites in view, "/", entries, ":" and the numbers listed
};

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
    for (const std::uint8_t prn : satellite.prn) {
        published += prn != GPS_SATELLITE_EMPTY ? " " + std::to_string(prn) : "";
    }
    EXPECT_EQ(taken, GetParam().taken);
    EXPECT_EQ(published, GetParam().published);
}

/// A group of three with a middle message that is refused.
std::vector<std::string> Around(const std::string& middle)
{
    return {Gsv(3, 1, 12, {1}), middle, Gsv(3, 3, 11, {9})};
}

const GroupCase GROUP_CASES[] = {
    {"OneMessageBeginsAfresh", {Gsv(2, 1, 8, {1}), Gsv(1, 1, 2, {5, 6})}, "11", "2/2: 5 6"},
    {"PublishingClears", {Gsv(2, 2, 4, {1, 2}), Gsv(2, 2, 1, {3})}, "11", "1/1: 3"},
    {"RepeatCountsTwice", {Gsv(2, 1, 4, {1}), Gsv(2, 1, 4, {1}), Gsv(2, 2, 4, {3})}, "111", "4/3: 1 3"},
    {"Number64IsTheLast", {Gsv(2, 2, 1, {64, 1})}, "1", "1/2: 1 64"},
    {"Number65Drops", Around(Gsv(3, 2, 12, {5, 65, 6})), "101", "11/1: 9"},
    {"NumberZeroDrops", Around(Gsv(3, 2, 12, {0})), "101", "11/1: 9"},
    {"NumberBelowZeroDrops", Around(Gsv(3, 2, 12, {-7})), "101", "11/1: 9"},
    {"ElevationBeforeANumberDrops", Around("GPGSV,3,2,4,,45,100,30,3"), "101", "11/1: 9"},
    {"AzimuthBeforeANumberDrops", Around("GPGSV,3,2,4,,,100,"), "101", "11/1: 9"},
    {"SignalBeforeANumberDrops", Around("GPGSV,3,2,4,,,,30"), "101", "11/1: 9"},
    {"EmptyNumberDoesNotCount", {"GPGSV,2,2,4,2,45,100,30,,46,101,31"}, "1", "4/1: 2"},
    {"ViewCount64Passes", {Gsv(1, 1, 64, {2})}, "1", "64/1: 2"},
    {"ViewCount65Drops", Around(Gsv(3, 2, 65, {2})), "101", "11/1: 9"},
    {"EmptyViewCountKeepsTheLatest", {Gsv(2, 1, 9, {1}), "GPGSV,2,2,,02,1,2,3"}, "11", "9/2: 1 2"},
    {"MessageThreeOfTwoClearsNothing", Around(Gsv(2, 3, 5, {2})), "101", "11/2: 1 9"},
    {"MessageZeroClearsNothing", Around(Gsv(2, 0, 5, {2})), "101", "11/2: 1 9"},
    {"EmptyTotalClearsNothing", Around("GPGSV,,1,5,2,1,2,3"), "101", "11/2: 1 9"},
    {"EmptyMessageNumberPublishes", {Gsv(3, 1, 4, {1}), "GPGSV,3,,5,02,1,2,3"}, "11", "5/2: 1 2"},
    {"NoCommaPublishes", {Gsv(3, 1, 4, {1}), "GPGSV"}, "11", "4/1: 1"},
    {"FifthEntryIsNotRead", {Gsv(1, 1, 5, {1, 2, 3, 4, 99})}, "1", "5/4: 1 2 3 4"},
};
INSTANTIATE_TEST_SUITE_P(Rules, GsvGroups, testing::ValuesIn(GROUP_CASES), support::RuleName());

TEST(GsvEntry, DataIsCutToItsWidthAndBehindAnEmptyNumberGoesToTheEntryBefore)
{
    const struct {
        const char* body;
        int elevation;
        int azimuth;
        int snr;
    } ROWS[] = {{"GPGSV,1,1,1,05,300,65537,-1", 300 - 256, 1, 255},
                {"GPGSV,1,1,1,05,10,100,30,,45,,", 45, 100, 0}}; // the last field, the asterisk, is present
    for (const auto& row : ROWS) {
        ParserFeed feed;
        ASSERT_TRUE(feed.Take(row.body));
        EXPECT_EQ(feed.record.satellite.elevation[4], row.elevation) << row.body;
        EXPECT_EQ(feed.record.satellite.azimuth[4], row.azimuth) << row.body;
        EXPECT_EQ(feed.record.satellite.snr[4], row.snr) << row.body;
    }
}

TEST(GsvGroup, ListedCountWrapsAt256)
{
    ParserFeed feed;
    for (int entry = 0; entry < 258; ++entry) {
        ASSERT_TRUE(feed.Take(Gsv(2, 1, 4, {1})));
    }
    ASSERT_TRUE(feed.Take(Gsv(2, 2, 4, {5})));
    EXPECT_EQ(feed.record.satellite.listedCount, 3);
}

TEST(GsvGroup, CallersThatNameNoAccumulatorShareOne)
{
    _GPS_Data record;
    for (const int number : {1, 2}) {
        const std::string sentence = Sentence(Gsv(2, number, 4, {number}));
        ASSERT_TRUE(GPS::CNMEAParser().Parse(sentence.c_str(), static_cast<int>(sentence.size()), 0, record));
    }
    EXPECT_EQ(record.satellite.listedCount, 2);
}

} // namespace
