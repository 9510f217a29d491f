// Runs of sentences over one record: who decides `valid`, what becomes of `mask`, which sentence fills what.
#include <vector>

#include "GpsLib/nmea/ClosesEpoch.h"
#include "tests/unit/nmea/ParserFeed.h"

namespace
{

const std::string GGA_NONE = With(GGA, 6, "0");
const std::string RMC_V = With(RMC, 2, "V");
const std::string GSA_1 = With(GSA, 2, "1");
constexpr const char* GSV = "GPGSV,1,1,03,01,40,083,46,04,17,308,41,03,07,344,39";

TEST(Epoch, RunOfSentencesEndsWithValidAndMask)
{
    const struct {
        const char* rule;
        std::vector<std::string> bodies;
        std::uint8_t valid;
        std::uint32_t mask;
    } ROWS[] = {
        {"GGA overrules RMC", {RMC, GGA_NONE}, 0, 0x255},
        {"GLL overrules RMC", {RMC, With(GLL, 6, "V")}, 0, 0x054},
        {"GSA overrules GGA and adds to mask", {GGA, GSA_1}, 0, 0x275},
        {"RMC yields to GGA of the same second", {GGA, RMC_V}, 1, 0x15E},
        {"RMC yields to a bad status too", {GGA_NONE, RMC}, 0, 0x15E},
        {"RMC yields to RMC and date plays no part", {RMC, With(RMC_V, 9, "240394")}, 1, 0x15E},
        {"other hour", {GGA, With(RMC_V, 1, "111519")}, 0, 0x15E},
        {"other minute", {GGA, With(RMC_V, 1, "101619")}, 0, 0x15E},
        {"other second", {GGA, With(RMC_V, 1, "101520")}, 0, 0x15E},
        {"VTG between takes the status away", {RMC, VTG, RMC_V}, 0, 0x15E},
        {"ZDA between takes the status away", {RMC, ZDA, RMC_V}, 0, 0x15E},
        {"GSA behind VTG brings it back", {RMC, VTG, GSA, RMC_V}, 1, 0x15E},
        {"GSV between keeps it", {RMC, GSV, RMC_V}, 1, 0x15E},
        {"GSV adds to mask", {GGA, GSV}, 1, 0x275},
        {"RMC without position never yields", {GGA, With(RMC, 3, "")}, 0, 0x14E},
        {"midnight RMC yields to GSA in a cleared record", {GSA_1, With(RMC, 1, "000000")}, 0, 0x15E},
        {"midnight RMC alone", {With(RMC, 1, "000000")}, 1, 0x15E},
    };
    for (const auto& row : ROWS) {
        ParserFeed feed;
        for (const std::string& body : row.bodies) {
            feed.Take(body);
        }
        EXPECT_EQ(feed.record.valid, row.valid) << row.rule;
        EXPECT_EQ(feed.record.mask, row.mask) << row.rule;
    }
}

TEST(Epoch, GgaAloneClosesIt)
{
    for (const char* const body : {GLL, RMC, VTG, ZDA, GSA, GSV}) {
        EXPECT_FALSE(ClosesEpoch(Sentence(body).c_str())) << body;
    }
    EXPECT_TRUE(ClosesEpoch("$GPGGA*00"));
}

} // namespace
