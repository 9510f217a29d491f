// Runs of sentences over one record: who decides `valid`, what becomes of `mask`, which sentence fills what.
#include <vector>

#include "GpsLib/nmea/ClosesEpoch.h"
#include "tests/unit/nmea/ParserFeed.h"

namespace
{

// At 10:15:19 and at midnight, with a position unless told otherwise.
constexpr const char* GGA_FIX = "GPGGA,101519,4807.038,N,01131.0,E,1,08,0.9,545.4,M,,";
constexpr const char* GGA_NONE = "GPGGA,101519,4807.038,N,01131.0,E,0,08,0.9,545.4,M,,";
constexpr const char* GGA_REFUSED = "GPGGA,101519,4807.038,N,01131.0,E,0,08,0.9,,M,,";
constexpr const char* GLL_A = "GPGLL,4807.038,N,01131.0,E,101519,A";
constexpr const char* GLL_V = "GPGLL,4807.038,N,01131.0,E,101519,V";
constexpr const char* RMC_A = "GPRMC,101519,A,4807.038,N,01131.0,E,022.4,084.4,230394,,";
constexpr const char* RMC_V = "GPRMC,101519,V,4807.038,N,01131.0,E,022.4,084.4,230394,,";
constexpr const char* RMC_V_NEXT_DAY = "GPRMC,101519,V,4807.038,N,01131.0,E,022.4,084.4,240394,,";
constexpr const char* RMC_V_OTHER_HOUR = "GPRMC,111519,V,4807.038,N,01131.0,E,022.4,084.4,230394,,";
constexpr const char* RMC_V_OTHER_MINUTE = "GPRMC,101619,V,4807.038,N,01131.0,E,022.4,084.4,230394,,";
constexpr const char* RMC_V_OTHER_SECOND = "GPRMC,101520,V,4807.038,N,01131.0,E,022.4,084.4,230394,,";
constexpr const char* RMC_A_NO_POSITION = "GPRMC,101519,A,,,,,022.4,084.4,230394,,";
constexpr const char* RMC_A_MIDNIGHT = "GPRMC,000000,A,4807.038,N,01131.0,E,022.4,084.4,230394,,";
constexpr const char* RMC_A_PAST_MIDNIGHT = "GPRMC,000001,A,4807.038,N,01131.0,E,022.4,084.4,230394,,";
constexpr const char* VTG = "GPVTG,54.7,T,034.4,M,005.5,N,10.2,K";
constexpr const char* ZDA = "GPZDA,101519,04,07,2002,00,00";
constexpr const char* GSA_1 = "GPGSA,A,1,,,,,,,,,,,,,2.5,1.3,2.1";
constexpr const char* GSA_3 = "GPGSA,A,3,01,02,04,,,,,,,,,,2.5,1.3,2.1";
constexpr const char* GSV_OF_ONE = "GPGSV,1,1,03,01,40,083,46,02,17,308,41,03,07,344,39";
constexpr const char* GSV_FIRST_OF_TWO = "GPGSV,2,1,05,01,40,083,46";

struct RunCase {
    const char* rule;
    std::vector<const char*> bodies;
    std::uint8_t valid;
    std::uint32_t mask;
};

void PrintTo(const RunCase& run, std::ostream* out)
{
    for (const char* const body : run.bodies) {
        *out << '\n' << body;
    }
}

class Run : public testing::TestWithParam<RunCase>
{
};

TEST_P(Run, EndsWithValidAndMask)
{
    ParserFeed feed;
    for (const char* const body : GetParam().bodies) {
        feed.Take(body);
    }
    EXPECT_EQ(feed.record.valid, GetParam().valid);
    EXPECT_EQ(feed.record.mask, GetParam().mask);
}

const RunCase RUN_CASES[] = {
    {"GgaOverrulesRmc", {RMC_A, GGA_NONE}, 0, 0x255},
    {"GgaOverrulesGsa", {GSA_1, GGA_FIX}, 1, 0x255},
    {"RefusedGgaKeepsWhatStands", {RMC_A, GGA_REFUSED}, 1, 0x15E},
    {"GllOverrulesGga", {GGA_NONE, GLL_A}, 1, 0x054},
    {"GllOverrulesRmc", {RMC_A, GLL_V}, 0, 0x054},
    {"GsaFollowsItsModeAlone", {GSA_3}, 1, 0x060},
    {"GsaOverrulesGga", {GGA_FIX, GSA_1}, 0, 0x275},
    {"RmcYieldsToGgaOfTheSameSecond", {GGA_FIX, RMC_V}, 1, 0x15E},
    {"RmcYieldsToABadStatusToo", {GGA_NONE, RMC_A}, 0, 0x15E},
    {"RmcYieldsToGll", {GLL_A, RMC_V}, 1, 0x15E},
    {"RmcYieldsToRmc", {RMC_A, RMC_V}, 1, 0x15E},
    {"DatePlaysNoPart", {RMC_A, RMC_V_NEXT_DAY}, 1, 0x15E},
    {"OtherHour", {GGA_FIX, RMC_V_OTHER_HOUR}, 0, 0x15E},
    {"OtherMinute", {GGA_FIX, RMC_V_OTHER_MINUTE}, 0, 0x15E},
    {"OtherSecond", {GGA_FIX, RMC_V_OTHER_SECOND}, 0, 0x15E},
    {"VtgBetweenTakesTheStatusAway", {RMC_A, VTG, RMC_V}, 0, 0x15E},
    {"ZdaBetweenTakesTheStatusAway", {RMC_A, ZDA, RMC_V}, 0, 0x15E},
    {"GsaBehindVtgBringsItBack", {RMC_A, VTG, GSA_3, RMC_V}, 1, 0x15E},
    {"GsvBetweenKeepsIt", {RMC_A, GSV_OF_ONE, RMC_V}, 1, 0x15E},
    {"RmcWithoutPositionNeverYields", {GGA_FIX, RMC_A_NO_POSITION}, 0, 0x14E},
    {"MidnightRmcYieldsToGsaInAClearedRecord", {GSA_1, RMC_A_MIDNIGHT}, 0, 0x15E},
    {"MidnightRmcAlone", {RMC_A_MIDNIGHT}, 1, 0x15E},
    {"PastMidnightRmcDoesNotYield", {GSA_1, RMC_A_PAST_MIDNIGHT}, 1, 0x15E},
    {"VtgReplacesMaskAlone", {GGA_FIX, VTG}, 1, 0x102},
    {"ZdaReplacesMaskAlone", {RMC_A, ZDA}, 1, 0x00C},
    {"GsaAddsToMask", {GGA_FIX, GSA_3}, 1, 0x275},
    {"GsvAddsToMask", {VTG, GSV_OF_ONE}, 0, 0x122},
    {"UnfinishedGroupAddsNothing", {GGA_FIX, GSV_FIRST_OF_TWO}, 1, 0x255},
};
INSTANTIATE_TEST_SUITE_P(Rules, Run, testing::ValuesIn(RUN_CASES), RuleName<RunCase>);

TEST(Epoch, EachSentenceFillsItsOwn)
{
    ParserFeed feed;
    const char* const earlierRmc = "GPRMC,101518,A,1000.0,S,02000.0,W,022.4,084.4,230394,,";
    for (const char* const body : {GSA_3, GSV_OF_ONE, earlierRmc, VTG, GGA_FIX}) {
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
    EXPECT_EQ(record.satellite.used[0] + record.satellite.used[1], 2);
    EXPECT_EQ(record.satellite.used[3], 0); // in GSA, but not in GSV
    EXPECT_EQ(record.satellite.azimuth[1], 308);
}

TEST(Epoch, GgaAloneClosesIt)
{
    for (const char* const type : {"GPGLL", "GPGSA", "GPGSV", "GPRMC", "GPVTG", "GPZDA"}) {
        EXPECT_FALSE(ClosesEpoch(ExactCopy("$" + std::string(type)).get())) << type;
    }
    EXPECT_TRUE(ClosesEpoch("$GPGGA*00"));
}

} // namespace
