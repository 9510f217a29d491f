// GGA, GLL and RMC: what each field does to a record, and that nothing else is touched.
#include "tests/unit/nmea/ParserFeed.h"

namespace
{

constexpr double SIXTIETH = 0.016666666666666666;
constexpr tagLonLat HERE{-(11.0 + 31.0 * SIXTIETH), 48.0 + 7.038 * SIXTIETH};

Change Fix(std::uint32_t mask, std::uint8_t valid, tagLonLat lonLat = HERE)
{
    return [=](_GPS_Data& record) {
        record.mask = mask;
        record.time = {10, 15, 19, {}};
        record.valid = valid;
        record.lonLat = lonLat;
    };
}

Change Gga(std::uint32_t mask, std::uint8_t valid, tagLonLat lonLat = HERE)
{
    return Also(Fix(mask, valid, lonLat), [](_GPS_Data& record) {
        record.satUsed = 8;
        record.altitude = 545.4;
    });
}

/// A sentence that parses without a position: no more than mask, time and a `valid` of 0.
Change NoPosition(std::uint32_t mask)
{
    return [mask](_GPS_Data& record) {
        record.mask = mask;
        record.time = {10, 15, 19, {}};
        record.valid = 0;
    };
}

Change Time(std::uint8_t hour, std::uint8_t minute, std::uint8_t second)
{
    return [=](_GPS_Data& record) { record.time = {hour, minute, second, {}}; };
}

Change Altitude(double altitude)
{
    return [=](_GPS_Data& record) { record.altitude = altitude; };
}

class SentenceWalk : public WalkTest
{
};

TEST_P(SentenceWalk, WritesThisAndNothingElse)
{
    Check();
}

const WalkCase GGA_CASES[] = {
    {"QualityOne", "GPGGA,101519.75,4807.038,N,01131.0,W,1,08,0.9,545.4,M,46.9,M,,", Gga(0x255, 1)},
    {"QualityTwoAddsDgps", "GPGGA,101519,4807.038,N,01131.0,W,2,08,0.9,545.4,M,46.9,M,,", Gga(0x2D5, 1)},
    {"QualityFourAddsRtk", "GPGGA,101519,4807.038,N,01131.0,W,4,08,0.9,545.4,M,46.9,M,,", Gga(0x655, 1)},
    {"QualityZero", "GPGGA,101519,4807.038,N,01131.0,W,0,08,0.9,545.4,M,46.9,M,,", Gga(0x255, 0)},
    {"QualityThree", "GPGGA,101519,4807.038,N,01131.0,W,3,08,0.9,545.4,M,46.9,M,,", Gga(0x255, 0)},
    {"QualityFive", "GPGGA,101519,4807.038,N,01131.0,W,5,08,0.9,545.4,M,46.9,M,,", Gga(0x255, 0)},
    {"QualityByFirstCharacter", "GPGGA,101519,4807.038,N,01131.0,W,10,08,0.9,545.4,M,,", Gga(0x255, 1)},
    {"QualityEmpty", "GPGGA,101519,4807.038,N,01131.0,W,,08,0.9,545.4,M,46.9,M,,", Gga(0x215, 0)},

    {"NorthPoleIsNoPosition", "GPGGA,101519,9000.000,N,01131.0,W,1,08,0.9,545.4,M,,", NoPosition(0x255)},
    {"SouthPoleIsOne", "GPGGA,101519,9000.000,S,01131.0,W,1,08,0.9,545.4,M,,",
     Gga(0x255, 1, {HERE.lon, -90.0})},
    {"ShortOfTheNorthPoleIsOne", "GPGGA,101519,8900.06,N,01131.0,W,1,08,0.9,545.4,M,,",
     Gga(0x255, 1, {HERE.lon, 89.0 + 0.06 * SIXTIETH})},
    {"DateLineEastIsNoPosition", "GPGGA,101519,4807.038,N,18000.0,E,1,08,0.9,545.4,M,,", NoPosition(0x255)},
    {"DateLineWestIsOne", "GPGGA,101519,4807.038,N,18000.0,W,1,08,0.9,545.4,M,,",
     Gga(0x255, 1, {-180.0, HERE.lat})},

    {"TimeEmpty", "GPGGA,,4807.038,N,01131.0,W,1,08,0.9,545.4,M,46.9,M,,",
     Also(Gga(0x251, 1), Time(0, 0, 0))},
    {"LatitudeEmptyNorth", "GPGGA,101519,,N,01131.0,W,1,08,0.9,545.4,M,46.9,M,,", NoPosition(0x245)},
    {"LatitudeEmptySouthIsThePole", "GPGGA,101519,,S,01131.0,W,1,08,0.9,545.4,M,46.9,M,,",
     Gga(0x245, 1, {HERE.lon, -90.0})},
    {"NorthSouthEmpty", "GPGGA,101519,4807.038,,01131.0,W,1,08,0.9,545.4,M,46.9,M,,", Gga(0x245, 1)},
    {"LongitudeEmptyEast", "GPGGA,101519,4807.038,N,,E,1,08,0.9,545.4,M,46.9,M,,", NoPosition(0x245)},
    {"LongitudeEmptyWest", "GPGGA,101519,4807.038,N,,W,1,08,0.9,545.4,M,,",
     Gga(0x245, 1, {-180.0, HERE.lat})},
    {"EastWestEmptyStaysUnsigned", "GPGGA,101519,4807.038,N,01131.0,,1,08,0.9,545.4,M,46.9,M,,",
     Gga(0x245, 1, {-HERE.lon, HERE.lat})},
    {"PositionEmpty", "GPGGA,101519,,,,,1,08,0.9,545.4,M,46.9,M,,", NoPosition(0x245)},
    {"SatUsedEmptyIsZero", "GPGGA,101519,4807.038,N,01131.0,W,1,,0.9,545.4,M,46.9,M,,",
     Also(Gga(0x055, 1), [](_GPS_Data& record) { record.satUsed = 0; })},
    {"DilutionIsNotRead", "GPGGA,101519,4807.038,N,01131.0,W,1,08,,545.4,M,46.9,M,,", Gga(0x255, 1)},
    {"AltitudeEmptyRefuses", "GPGGA,101519,4807.038,N,01131.0,W,1,08,0.9,,M,46.9,M,,", nullptr},
    {"AltitudeEmptyAsLastFieldCounts", "GPGGA,101519,4807.038,N,01131.0,W,1,08,0.9,",
     Also(Gga(0x255, 1), Altitude(0.0))},
    {"AltitudeAsLastField", "GPGGA,101519,4807.038,N,01131.0,W,1,08,0.9,-12.5",
     Also(Gga(0x255, 1), Altitude(-12.5))},
    {"ShortOfAltitudeRefuses", "GPGGA,101519,4807.038,N,01131.0,W,1,08,0.9", nullptr},
    {"NoCommaRefuses", "GPGGA", nullptr},

    {"LowerCaseHemispheresDontNegate", "GPGGA,101519,4807.038,s,01131.0,w,1,08,0.9,545.4,M,,",
     Gga(0x255, 1, {-HERE.lon, HERE.lat})},
    {"SouthEast", "GPGGA,101519,4807.038,S,01131.0,E,1,08,0.9,545.4,M,,",
     Gga(0x255, 1, {-HERE.lon, -HERE.lat})},
    {"TimeIsCutTo8Bits", "GPGGA,Z0A0//,4807.038,N,01131.0,W,1,08,0.9,545.4,M,,",
     Also(Gga(0x255, 1), Time(420 - 256, 170, 256 - 11))},
    {"HighBytesAreUnsignedDigits", "GPGGA,101519,\260007.038,N,01131.0,W,1,08,0.9,545.4,M,,",
     Gga(0x255, 1, {HERE.lon, 1280.0 + 7.038 * SIXTIETH})},
    // "12", "3,", "48" are taken for the time and the walk resumes at that "8": "N" is then the latitude,
    // with its degrees from "N," (30 * 10 - 4), and "1," the longitude, with its degrees from "1,0".
    {"ShortTimeSwallowsTheNextField", "GPGGA,123,4807.038,N,01131.0,W,1,08,0.9,545.4,M,46.9,M,,",
     Also(Fix(0x255, 0, {60.0 + 8.0 * SIXTIETH, 296.0 + 1131.0 * SIXTIETH}),
          [](_GPS_Data& record) {
              record.time = {12, 26, 48, {}};
              record.satUsed = 0;
              record.altitude = 0.0;
          })},
    {"FiveDigitsOfTimeLoseNoField", "GPGGA,10151,4807.038,N,01131.0,W,1,08,0.9,545.4,M,,",
     Also(Gga(0x255, 1), Time(10, 15, 6))}, // "1," is 10 - 4
    // "4," gives 36 degrees and the walk resumes at "N"; "W,0" gives (39 * 10 - 4) * 10 + 0 degrees.
    {"ShortLatitudeSwallowsTheNextField", "GPGGA,101519,4,N,01131.0,W,08,1,545,6,46.9,M,,",
     Also(Fix(0x255, 0, {3860.0 + 8.0 * SIXTIETH, 36.0}),
          [](_GPS_Data& record) {
              record.satUsed = 6;
              record.altitude = 0.0;
          })},
};
INSTANTIATE_TEST_SUITE_P(Gga, SentenceWalk, testing::ValuesIn(GGA_CASES), RuleName<WalkCase>);

const WalkCase GLL_CASES[] = {
    {"StatusA", "GPGLL,4807.038,N,01131.0,W,101519.75,A", Fix(0x054, 1)},
    {"FurtherFieldsAreNotRead", "GPGLL,4807.038,N,01131.0,W,101519,A,D,1", Fix(0x054, 1)},
    {"StatusV", "GPGLL,4807.038,N,01131.0,W,101519,V,N", Fix(0x054, 0)},
    {"StatusIsUpperCase", "GPGLL,4807.038,N,01131.0,W,101519,a", Fix(0x054, 0)},
    {"StatusEmptyRefuses", "GPGLL,4807.038,N,01131.0,W,101519,,A", nullptr},
    {"StatusEmptyAsLastFieldCounts", "GPGLL,4807.038,N,01131.0,W,101519,", Fix(0x054, 0)},
    {"FourFieldsRefuse", "GPGLL,4807.038,N,01131.0,W", nullptr},
    {"TimeEmpty", "GPGLL,4807.038,N,01131.0,W,,A", Also(Fix(0x050, 1), Time(0, 0, 0))},
    {"LatitudeEmpty", "GPGLL,,N,01131.0,W,101519,A", NoPosition(0x044)},
    {"LatitudeEmptySouthIsThePole", "GPGLL,,S,01131.0,W,101519,A", Fix(0x044, 1, {HERE.lon, -90.0})},
    {"NorthSouthEmpty", "GPGLL,4807.038,,01131.0,W,101519,A", Fix(0x044, 1)},
    {"LongitudeEmpty", "GPGLL,4807.038,N,,E,101519,A", NoPosition(0x044)},
    {"EastWestEmpty", "GPGLL,4807.038,N,01131.0,,101519,A", Fix(0x044, 1, {-HERE.lon, HERE.lat})},
    {"PositionEmpty", "GPGLL,,,,,101519,A", NoPosition(0x044)},
    {"NorthPoleIsNoPosition", "GPGLL,9000.0,N,01131.0,W,101519,A", NoPosition(0x054)},
    {"NoCommaRefuses", "GPGLL", nullptr},
};
INSTANTIATE_TEST_SUITE_P(Gll, SentenceWalk, testing::ValuesIn(GLL_CASES), RuleName<WalkCase>);

Change Date(std::uint16_t year, std::uint8_t month, std::uint8_t day)
{
    return [=](_GPS_Data& record) { record.date = {year, month, day}; };
}

Change Rmc(std::uint32_t mask, std::uint8_t valid, double speed = 22.4 * 1.852, double heading = 84.4)
{
    return Also(Also(Fix(mask, valid), Date(94, 3, 23)), [=](_GPS_Data& record) {
        record.speed = speed;
        record.heading = heading;
    });
}

const WalkCase RMC_CASES[] = {
    {"StatusA", "GPRMC,101519.75,A,4807.038,N,01131.0,W,022.4,084.4,230394,003.1,W", Rmc(0x15E, 1)},
    {"StatusV", "GPRMC,101519,V,4807.038,N,01131.0,W,022.4,084.4,230394,003.1,W", Rmc(0x15E, 0)},
    {"TimeEmpty", "GPRMC,,A,4807.038,N,01131.0,W,022.4,084.4,230394,,", Also(Rmc(0x15A, 1), Time(0, 0, 0))},
    {"StatusEmpty", "GPRMC,101519,,4807.038,N,01131.0,W,022.4,084.4,230394,,", Rmc(0x11E, 0)},
    {"NorthSouthEmpty", "GPRMC,101519,A,4807.038,,01131.0,W,022.4,084.4,230394,,", Rmc(0x14E, 1)},
    {"LatitudeEmpty", "GPRMC,101519,A,,N,01131.0,W,022.4,084.4,230394,,",
     Also(NoPosition(0x14E), Date(94, 3, 23))},
    {"LongitudeEmpty", "GPRMC,101519,A,4807.038,N,,E,022.4,084.4,230394,,",
     Also(NoPosition(0x14E), Date(94, 3, 23))},
    {"EastWestEmpty", "GPRMC,101519,A,4807.038,N,01131.0,,022.4,084.4,230394,,",
     Also(Rmc(0x14E, 1), [](_GPS_Data& record) { record.lonLat.lon = -HERE.lon; })},
    {"SpeedEmptyIsZero", "GPRMC,101519,A,4807.038,N,01131.0,W,,084.4,230394,,", Rmc(0x15C, 1, 0.0)},
    {"CourseEmptyIsZero", "GPRMC,101519,A,4807.038,N,01131.0,W,022.4,,230394,,",
     Rmc(0x05E, 1, 22.4 * 1.852, 0.0)},
    {"DateEmptyRefuses", "GPRMC,101519,A,4807.038,N,01131.0,W,022.4,084.4,,003.1,W", nullptr},
    {"ShortOfDateRefuses", "GPRMC,101519,A,4807.038,N,01131.0,W,022.4,084.4", nullptr},
    {"DateAsLastField", "GPRMC,101519,A,4807.038,N,01131.0,W,022.4,084.4,230394", Rmc(0x15E, 1)},
    {"PositionEmptyKeepsTimeAndDate", "GPRMC,101519,A,,,,,,,230394,,",
     Also(NoPosition(0x04C), Date(94, 3, 23))},
    {"ShortDateIsNotDetected", "GPRMC,101519,A,4807.038,N,01131.0,W,022.4,084.4,2303,0,",
     Also(Rmc(0x15E, 1), Date(65536 - 40, 3, 23))}, // ",0" is -4 * 10, cut to 16 bits
    {"NoCommaRefuses", "GPRMC", nullptr},
};
INSTANTIATE_TEST_SUITE_P(Rmc, SentenceWalk, testing::ValuesIn(RMC_CASES), RuleName<WalkCase>);

TEST(RmcDate, EmptyAsLastFieldIsReadFromTheChecksum)
{
    // The sum: the letters of GPRMC leave 0x4B, nine commas leave one, 0x2C.
    ParserFeed feed;
    ASSERT_TRUE(feed.TakeRaw("$GPRMC,,,,,,,,,*67"));
    EXPECT_EQ(feed.record.mask, GPS_MASK_DATE);
    EXPECT_EQ(feed.record.date.day, 256 - 60 + 6);                             // "*6": ('*' - '0') * 10 + 6
    EXPECT_EQ(feed.record.date.month, static_cast<std::uint8_t>(7 * 10 - 48)); // "7" and the terminator
    EXPECT_EQ(feed.record.date.year, 65536 - 48 * 11);                         // nothing behind it
}

} // namespace
