// What each field of a sentence does to a record, and that nothing else is touched.
#include <functional>
#include <initializer_list>
#include <vector>

#include "tests/unit/nmea/ParserFeed.h"

namespace
{

using support::operator<<;
using Change = std::function<void(_GPS_Data&)>;

template <class FIELD>
Change Set(FIELD _GPS_Data::*field, const FIELD& value)
{
    return [=](_GPS_Data& record) { record.*field = value; };
}

template <class... CHANGES>
Change All(CHANGES... changes)
{
    return [=](_GPS_Data& record) { (changes(record), ...); };
}

/// One sentence offered to a marked record: all that it may do there; null when it is refused.
using WalkCase = support::Row<std::string, Change>;

class FieldWalk : public testing::TestWithParam<WalkCase>
{
};

TEST_P(FieldWalk, WritesThisAndNothingElse)
{
    const auto& [rule, body, change] = GetParam();
    ParserFeed feed;
    feed.Mark();
    ParserFeed expected;
    expected.Mark();
    EXPECT_EQ(feed.Take(body), change != nullptr) << body;
    if (change != nullptr) {
        change(expected.record);
    }
    EXPECT_EQ(BytesOf(feed.record), BytesOf(expected.record)) << body;
}

// ---- GGA, GLL and RMC

constexpr double SIXTIETH = 0.016666666666666666;
constexpr tagLonLat HERE{-(11.0 + 31.0 * SIXTIETH), 48.0 + 7.038 * SIXTIETH};

Change Time(std::uint8_t hour, std::uint8_t minute, std::uint8_t second)
{
    return Set(&_GPS_Data::time, {hour, minute, second, {}});
}

Change Date(std::uint16_t year, std::uint8_t month, std::uint8_t day)
{
    return Set(&_GPS_Data::date, {year, month, day});
}

/// A sentence that parses without a position: no more than mask, time and a `valid` of 0.
Change NoPosition(std::uint32_t mask)
{
    return All(Set(&_GPS_Data::mask, mask), Time(10, 15, 19), Set<std::uint8_t>(&_GPS_Data::valid, 0));
}

Change Fix(std::uint32_t mask, std::uint8_t valid, tagLonLat lonLat = HERE)
{
    return All(NoPosition(mask), Set(&_GPS_Data::valid, valid), Set(&_GPS_Data::lonLat, lonLat));
}

Change Gga(std::uint32_t mask, std::uint8_t valid, tagLonLat lonLat = HERE, std::int32_t satUsed = 8,
           double altitude = 545.4)
{
    return All(Fix(mask, valid, lonLat), Set(&_GPS_Data::satUsed, satUsed),
               Set(&_GPS_Data::altitude, altitude));
}

const WalkCase GGA_CASES[] = {
    {"QualityOne", GGA, Gga(0x255, 1)},
    {"QualityTwoAddsDgps", With(GGA, 6, "2"), Gga(0x2D5, 1)},
    {"QualityFourAddsRtk", With(GGA, 6, "4"), Gga(0x655, 1)},
    {"QualityFive", With(GGA, 6, "5"), Gga(0x255, 0)},
    {"QualityEmpty", With(GGA, 6, ""), Gga(0x215, 0)},

    {"NorthPoleIsNoPosition", With(GGA, 2, "9000.000"), NoPosition(0x255)},
    // A division by 60 gives another last bit here.
    {"MinutesAreMultiplied", With(GGA, 2, "4830.276"), Gga(0x255, 1, {HERE.lon, 48.0 + 30.276 * SIXTIETH})},
    {"SouthEast", With(With(GGA, 3, "S"), 5, "E"), Gga(0x255, 1, {-HERE.lon, -HERE.lat})},
    {"LowerCaseSouthDoesNotNegate", With(GGA, 3, "s"), Gga(0x255, 1)},

    {"TimeEmpty", With(GGA, 1, ""), All(Gga(0x251, 1), Time(0, 0, 0))},
    {"LatitudeEmptySouthIsThePole", With(With(GGA, 2, ""), 3, "S"), Gga(0x245, 1, {HERE.lon, -90.0})},
    {"LongitudeEmptyEast", With(With(GGA, 4, ""), 5, "E"), NoPosition(0x245)},
    {"EastWestEmptyStaysUnsigned", With(GGA, 5, ""), Gga(0x245, 1, {-HERE.lon, HERE.lat})},
    {"SatUsedEmptyIsZero", With(GGA, 7, ""), Gga(0x055, 1, HERE, 0)},
    {"AltitudeEmptyRefuses", With(GGA, 9, ""), nullptr},

    {"TimeIsCutTo8Bits", With(GGA, 1, "Z0A0//"), All(Gga(0x255, 1), Time(420 - 256, 170, 256 - 11))},
    {"HighBytesAreUnsignedDigits", With(GGA, 2, "\260007.038"),
     Gga(0x255, 1, {HERE.lon, 1280.0 + 7.038 * SIXTIETH})},
    // "12", "34", ",4" are taken for the time and the walk resumes at that "4": "N" is then the latitude,
    // with its degrees from "N," (30 * 10 - 4), and "1," the longitude, with its degrees from "1,0".
    {"ShortTimeSwallowsTheNextField", With(GGA, 1, "1234"),
     All(Gga(0x255, 0, {60.0 + 8.0 * SIXTIETH, 296.0 + 1131.0 * SIXTIETH}, 0, 0.0), Time(12, 34, 256 - 36))},
    // "1," is 10 - 4 seconds.
    {"FiveDigitsOfTimeLoseNoField", With(GGA, 1, "10151"), All(Gga(0x255, 1), Time(10, 15, 6))},
    // "4," gives 36 degrees and the walk resumes at "N"; "W,0" gives (39 * 10 - 4) * 10 + 0 degrees.
    {"ShortLatitudeSwallowsTheNextField", "GPGGA,101519,4,N,01131.0,W,08,1,545,6,46.9,M,,",
     Gga(0x255, 0, {3860.0 + 8.0 * SIXTIETH, 36.0}, 6, 0.0)},
};
INSTANTIATE_TEST_SUITE_P(Gga, FieldWalk, testing::ValuesIn(GGA_CASES), support::RuleName());

const WalkCase GLL_CASES[] = {
    {"StatusA", GLL, Fix(0x054, 1)},
    {"StatusV", With(GLL, 6, "V"), Fix(0x054, 0)},
    {"StatusEmptyRefuses", With(GLL, 6, ""), nullptr},
    {"LatitudeEmpty", With(GLL, 1, ""), NoPosition(0x044)},
};
INSTANTIATE_TEST_SUITE_P(Gll, FieldWalk, testing::ValuesIn(GLL_CASES), support::RuleName());

Change Rmc(std::uint32_t mask, std::uint8_t valid, double speed = 22.4 * 1.852, double heading = 84.4)
{
    return All(Fix(mask, valid), Date(94, 3, 23), Set(&_GPS_Data::speed, speed),
               Set(&_GPS_Data::heading, heading));
}

const WalkCase RMC_CASES[] = {
    {"StatusA", RMC, Rmc(0x15E, 1)},
    {"StatusV", With(RMC, 2, "V"), Rmc(0x15E, 0)},
    {"StatusEmpty", With(RMC, 2, ""), Rmc(0x11E, 0)},
    {"LatitudeEmpty", With(RMC, 3, ""), All(NoPosition(0x14E), Date(94, 3, 23))},
    {"SpeedEmptyIsZero", With(RMC, 7, ""), Rmc(0x15C, 1, 0.0)},
    {"CourseEmptyIsZero", With(RMC, 8, ""), Rmc(0x05E, 1, 22.4 * 1.852, 0.0)},
    {"DateEmptyRefuses", With(RMC, 9, ""), nullptr},
    // ",0" is -4 * 10, cut to 16 bits.
    {"ShortDateIsNotDetected", With(RMC, 9, "2303,0"), All(Rmc(0x15E, 1), Date(65536 - 40, 3, 23))},
};
INSTANTIATE_TEST_SUITE_P(Rmc, FieldWalk, testing::ValuesIn(RMC_CASES), support::RuleName());

// ---- VTG and ZDA: fixed masks, whichever fields were present

Change Vtg(double heading)
{
    return All(Set(&_GPS_Data::mask, 0x102U), Set(&_GPS_Data::heading, heading),
               Set(&_GPS_Data::speed, 10.2));
}

Change Zda(std::uint16_t year, std::uint8_t month = 7, std::uint8_t day = 4)
{
    return All(Set(&_GPS_Data::mask, 0x00CU), Time(10, 15, 19), Date(year, month, day));
}

const WalkCase SPEED_DATE_CASES[] = {
    {"Vtg", VTG, Vtg(54.7)},
    {"VtgCourseEmptyIsZero", With(VTG, 1, ""), Vtg(0.0)},
    {"VtgSpeedEmptyRefusesDespiteKnots", With(VTG, 7, ""), nullptr},

    {"Zda", ZDA, Zda(26)},
    {"ZdaYear2001", With(ZDA, 4, "2001"), Zda(1)},
    {"ZdaYear2000StaysWhole", With(ZDA, 4, "2000"), Zda(2000)},
    {"ZdaYearWrapsAt16Bits", With(ZDA, 4, "/000"), Zda(65536 - 1000 - 2000)},
    {"ZdaShortYearIsNotDetected", With(ZDA, 4, "99"), Zda(((9 * 10 + 9) * 10 - 4) * 10 + 0 - 2000)},
    {"ZdaYearEmptyRefuses", With(ZDA, 4, ""), nullptr},
    // "4," is 40 - 4; the walk stays at the field's start, so no field is lost.
    {"ZdaOneDigitTakesTheComma", With(With(ZDA, 2, "4"), 3, "7"), Zda(26, 66, 36)},
    {"ZdaDayAndMonthAreCutTo8Bits", With(With(ZDA, 2, "Z0"), 3, "/0"), Zda(26, 246, 164)},
};
INSTANTIATE_TEST_SUITE_P(SpeedDate, FieldWalk, testing::ValuesIn(SPEED_DATE_CASES), support::RuleName());

// ---- GSA

Change Gsa(std::uint8_t valid, std::initializer_list<std::size_t> used)
{
    return [valid, numbers = std::vector<std::size_t>(used)](_GPS_Data& record) {
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
    return All(Set(&_GPS_Data::pdop, pdop), Set(&_GPS_Data::hdop, hdop), Set(&_GPS_Data::vdop, vdop));
}

const Change USUAL = Dilutions(2.5, 1.3, 2.1);

const WalkCase GSA_CASES[] = {
    {"ModeThree", GSA, All(Gsa(1, {4, 5, 9, 12, 24}), USUAL)},
    {"ModeTwo", With(GSA, 2, "2"), All(Gsa(1, {4, 5, 9, 12, 24}), USUAL)},
    {"ModeOne", With(GSA, 2, "1"), All(Gsa(0, {4, 5, 9, 12, 24}), USUAL)},
    {"ModeEmptyRefuses", With(GSA, 2, ""), nullptr},
    {"ModeAloneKeepsTheDilutions", "GPGSA,,3", Gsa(1, {})},
    {"TwoNumbersAreHdopAndVdop", "GPGSA,A,3,07,08",
     All(Gsa(1, {}), Set(&_GPS_Data::hdop, 7.0), Set(&_GPS_Data::vdop, 8.0))},
    {"FurtherFieldShiftsAll", "GPGSA,A,3,04,,,,,,,,,,,,5.5,1.3,2.1,1",
     All(Gsa(1, {4, 5}), Dilutions(1.3, 2.1, 1.0))},
    {"NumbersWithoutASlotArePassedOver", "GPGSA,A,3,0,64,65,-1,193,99999999999,x,1,2.5,1.3,2.1",
     All(Gsa(1, {64, 1}), USUAL)},
};
INSTANTIATE_TEST_SUITE_P(Gsa, FieldWalk, testing::ValuesIn(GSA_CASES), support::RuleName());

} // namespace
