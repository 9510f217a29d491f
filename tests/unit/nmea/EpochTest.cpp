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

TEST(Epoch, GgaAloneClosesIt)
{
    for (const char* const body : {GLL, RMC, VTG, ZDA, GSA, GSV}) {
        EXPECT_FALSE(ClosesEpoch(Sentence(body).c_str())) << body;
    }
    EXPECT_TRUE(ClosesEpoch("$GPGGA*00"));
}

} // namespace
