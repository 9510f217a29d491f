// GSV groups over their accumulator.
#include <initializer_list>
#include <vector>

#include "tests/unit/nmea/ParserFeed.h"

namespace
{

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

/// A group of three with a middle message that is refused.
std::vector<std::string> Around(const std::string& middle)
{
    return {Gsv(3, 1, 12, {1}), middle, Gsv(3, 3, 11, {9})};
}

TEST(GsvGroup, ListsWhatItsMessagesDid)
{
    const struct {
        const char* rule;
        std::vector<std::string> bodies;
        std::string taken;     // '1' or '0' for each
        std::string published; // satellites in view, "/", entries, ":" and the numbers listed
    } ROWS[] = {
        {"one message begins afresh", {Gsv(2, 1, 8, {1}), Gsv(1, 1, 2, {5, 6})}, "11", "2/2: 5 6"},
        {"publishing clears", {Gsv(2, 2, 4, {1, 2}), Gsv(2, 2, 1, {3})}, "11", "1/1: 3"},
        {"repeat counts twice", {Gsv(2, 1, 4, {1}), Gsv(2, 1, 4, {1}), Gsv(2, 2, 4, {3})}, "111", "4/3: 1 3"},
        {"number 64 is the last", {Gsv(2, 2, 1, {64, 1})}, "1", "1/2: 1 64"},
        {"number 65 drops", Around(Gsv(3, 2, 12, {5, 65, 6})), "101", "11/1: 9"},
        {"number zero drops", Around(Gsv(3, 2, 12, {0})), "101", "11/1: 9"},
        {"number below zero drops", Around(Gsv(3, 2, 12, {-7})), "101", "11/1: 9"},
        {"elevation before a number drops", Around("GPGSV,3,2,4,,45,100,30,3"), "101", "11/1: 9"},
        {"azimuth before a number drops", Around("GPGSV,3,2,4,,,100,"), "101", "11/1: 9"},
        {"signal before a number drops", Around("GPGSV,3,2,4,,,,30"), "101", "11/1: 9"},
        {"empty number does not count", {"GPGSV,2,2,4,2,45,100,30,,46,101,31"}, "1", "4/1: 2"},
        {"view count 64 passes", {Gsv(1, 1, 64, {2})}, "1", "64/1: 2"},
        {"view count is cut to 8 bits first", {Gsv(1, 1, 257, {2})}, "1", "1/1: 2"},
        {"view count 65 drops", Around(Gsv(3, 2, 65, {2})), "101", "11/1: 9"},
        {"empty view count keeps the latest", {Gsv(2, 1, 9, {1}), "GPGSV,2,2,,02,1,2,3"}, "11", "9/2: 1 2"},
        {"message three of two clears nothing", Around(Gsv(2, 3, 5, {2})), "101", "11/2: 1 9"},
        {"message zero clears nothing", Around(Gsv(2, 0, 5, {2})), "101", "11/2: 1 9"},
        {"empty total clears nothing", Around("GPGSV,,1,5,2,1,2,3"), "101", "11/2: 1 9"},
        {"empty message number publishes", {Gsv(3, 1, 4, {1}), "GPGSV,3,,5,02,1,2,3"}, "11", "5/2: 1 2"},
        {"no comma publishes", {Gsv(3, 1, 4, {1}), "GPGSV"}, "11", "4/1: 1"},
        {"fifth entry is not read", {Gsv(1, 1, 5, {1, 2, 3, 4, 99})}, "1", "5/4: 1 2 3 4"},
    };
    for (const auto& row : ROWS) {
        ParserFeed feed;
        std::string taken;
        for (const std::string& body : row.bodies) {
            taken += feed.Take(body) ? '1' : '0';
        }
        const _GPS_Satellite& satellite = feed.record.satellite;
        std::string published =
            std::to_string(satellite.viewCount) + "/" + std::to_string(satellite.listedCount) + ":";
        for (const std::uint8_t prn : satellite.prn) {
            published += prn != GPS_SATELLITE_EMPTY ? " " + std::to_string(prn) : "";
        }
        EXPECT_EQ(taken, row.taken) << row.rule;
        EXPECT_EQ(published, row.published) << row.rule;
    }
}

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
