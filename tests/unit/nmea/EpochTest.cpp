// Runs of sentences over one record: who decides `valid`, what becomes of `mask`, which sentence fills what.
#include <vector>

#include "GpsLib/nmea/ClosesEpoch.h"
#include "tests/unit/nmea/ParserFeed.h"

namespace
{

using support::operator<<;

const std::string GGA_NONE = With(GGA, 6, "0");
const std::string RMC_V = With(RMC, 2, "V");
const std::string GSA_1 = With(GSA, 2, "1");
constexpr const char* GSV = "GPGSV,1,1,03,01,40,083,46,04,17,308,41,03,07,344,39";

struct RunCase {
    const char* rule;
    std::vector<std::string> bodies;
    std::uint8_t valid;
    std::uint32_t mask;
};

class Run : public testing::TestWithParam<RunCase>
{
};

TEST_P(Run, EndsWithValidAndMask)
{
    ParserFeed feed;
    for (const std::string& body : GetParam().bodies) {
        feed.Take(body);
    }
    EXPECT_EQ(feed.record.valid, GetParam().valid);
    EXPECT_EQ(feed.record.mask, GetParam().mask);
}

const RunCase RUN_CASES[] = {
    {"GgaOverrulesRmc", {RMC, GGA_NONE}, 0, 0x255},
    {"GgaOverrulesGsa", {GSA_1, GGA}, 1, 0x255},
    {"RefusedGgaKeepsWhatStands", {RMC, With(GGA_NONE, 9, "")}, 1, 0x15E},
    {"GllOverrulesGga", {GGA_NONE, GLL}, 1, 0x054},
    {"GllOverrulesRmc", {RMC, With(GLL, 6, "V")}, 0, 0x054},
    {"GsaOverrulesGgaAndAddsToMask", {GGA, GSA_1}, 0, 0x275},
    {"RmcYieldsToGgaOfTheSameSecond", {GGA, RMC_V}, 1, 0x15E},
    {"RmcYieldsToABadStatusToo", {GGA_NONE, RMC}, 0, 0x15E},
    {"RmcYieldsToRmcAndDatePlaysNoPart", {RMC, With(RMC_V, 9, "240394")}, 1, 0x15E},
    {"OtherHour", {GGA, With(RMC_V, 1, "111519")}, 0, 0x15E},
    {"OtherMinute", {GGA, With(RMC_V, 1, "101619")}, 0, 0x15E},
    {"OtherSecond", {GGA, With(RMC_V, 1, "101520")}, 0, 0x15E},
    {"VtgBetweenTakesTheStatusAway", {RMC, VTG, RMC_V}, 0, 0x15E},
    {"ZdaBetweenTakesTheStatusAway", {RMC, ZDA, RMC_V}, 0, 0x15E},
    {"GsaBehindVtgBringsItBack", {RMC, VTG, GSA, RMC_V}, 1, 0x15E},
    {"GsvBetweenKeepsIt", {RMC, GSV, RMC_V}, 1, 0x15E},
    {"RmcWithoutPositionNeverYields", {GGA, With(RMC, 3, "")}, 0, 0x14E},
    {"MidnightRmcYieldsToGsaInAClearedRecord", {GSA_1, With(RMC, 1, "000000")}, 0, 0x15E},
    {"MidnightRmcAlone", {With(RMC, 1, "000000")}, 1, 0x15E},
    {"VtgReplacesMaskAlone", {GGA, VTG}, 1, 0x102},
    {"ZdaReplacesMaskAlone", {RMC, ZDA}, 1, 0x00C},
    {"GsvAddsToMask", {VTG, GSV}, 0, 0x122},
    {"UnfinishedGroupAddsNothing", {GGA, With(GSV, 1, "2")}, 1, 0x255},
};
INSTANTIATE_TEST_SUITE_P(Rules, Run, testing::ValuesIn(RUN_CASES), support::RuleName());

TEST(Epoch, EachSentenceFillsItsOwn)
{
    ParserFeed feed;
    const char* const earlierRmc = "GPRMC,101518,A,1000.0,S,02000.0,W,022.4,084.4,230394,,";
    for (const char* const body : {GSA, GSV, earlierRmc, VTG, GGA}) {
        ASSERT_TRUE(feed.Take(body));
    }
    const _GPS_Data& record = feed.record;
    EXPECT_EQ(record.mask, 0x255U);
    EXPECT_EQ(record.valid, 1);
    EXPECT_EQ(record.time.second, 19); // GGA
    EXPECT_EQ(record.lonLat.lat, 48.0 + 7.038 * 0.016666666666666666);
    EXPECT_EQ(record.satUsed, 8);
    EXPECT_EQ(record.date.year, 94); // RMC
    EXPECT_EQ(record.heading, 54.7); // VTG
    EXPECT_EQ(record.hdop, 1.3);     // GSA
    EXPECT_EQ(record.satellite.used[3], 1);
    EXPECT_EQ(record.satellite.used[4], 0); // in GSA, but not in GSV
    EXPECT_EQ(record.satellite.azimuth[3], 308);
}

TEST(Epoch, GgaAloneClosesIt)
{
    for (const char* const body : {GLL, RMC, VTG, ZDA, GSA, GSV}) {
        EXPECT_FALSE(ClosesEpoch(Sentence(body).c_str())) << body;
    }
    EXPECT_TRUE(ClosesEpoch("$GPGGA*00"));
}

} // namespace
