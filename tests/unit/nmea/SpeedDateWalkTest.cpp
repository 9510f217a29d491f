// VTG and ZDA: two fixed masks, whichever fields were present.
#include "tests/unit/nmea/ParserFeed.h"

namespace
{

Change Vtg(double heading, double speed)
{
    return [=](_GPS_Data& record) {
        record.mask = 0x102;
        record.heading = heading;
        record.speed = speed;
    };
}

Change Zda(_GPS_Time time, _GPS_Date date)
{
    return [=](_GPS_Data& record) {
        record.mask = 0x00C;
        record.time = time;
        record.date = date;
    };
}

Change Year(std::uint16_t year)
{
    return Zda({20, 15, 30, {}}, {year, 7, 4});
}

class SpeedDateWalk : public WalkTest
{
};

TEST_P(SpeedDateWalk, WritesThisAndNothingElse)
{
    Check();
}

const WalkCase SPEED_DATE_CASES[] = {
    {"Vtg", "GPVTG,54.7,T,034.4,M,005.5,N,10.2,K", Vtg(54.7, 10.2)},
    {"VtgCourseEmptyIsZero", "GPVTG,,T,034.4,M,005.5,N,10.2,K,A", Vtg(0.0, 10.2)},
    {"VtgReadsTwoFieldsAlone", "GPVTG,54.7,,,,,,10.2", Vtg(54.7, 10.2)},
    {"VtgSpeedEmptyRefusesDespiteKnots", "GPVTG,54.7,T,034.4,M,005.5,N,,K", nullptr},
    {"VtgSpeedEmptyAsLastFieldCounts", "GPVTG,54.7,T,034.4,M,005.5,N,", Vtg(54.7, 0.0)},
    {"VtgOfSixFieldsRefuses", "GPVTG,54.7,T,034.4,M,005.5,N", nullptr},
    {"VtgWithoutCommaRefuses", "GPVTG", nullptr},

    {"Zda", "GPZDA,201530.99,04,07,2026,00,00", Year(26)},
    {"ZdaYear2001", "GPZDA,201530,04,07,2001,00,00", Year(1)},
    {"ZdaYear2000StaysWhole", "GPZDA,201530,04,07,2000,00,00", Year(2000)},
    {"ZdaYear1999StaysWhole", "GPZDA,201530,04,07,1999", Year(1999)},
    {"ZdaYear9999", "GPZDA,201530,04,07,9999,00,00", Year(7999)},
    {"ZdaYearWrapsAt16Bits", "GPZDA,201530,04,07,/000,00,00", Year(65536 - 1000 - 2000)},
    {"ZdaShortYearIsNotDetected", "GPZDA,201530,04,07,99,00,00",
     Year(((9 * 10 + 9) * 10 - 4) * 10 + 0 - 2000)},
    {"ZdaYearEmptyRefuses", "GPZDA,201530,04,07,,00,00", nullptr},
    {"ZdaShortOfYearRefuses", "GPZDA,201530,04,07", nullptr},
    {"ZdaTimeEmptyIsZero", "GPZDA,,04,07,2002,00,00", Zda({}, {2, 7, 4})},
    {"ZdaDayEmptyIsZero", "GPZDA,201530,,07,2002,00,00", Zda({20, 15, 30, {}}, {2, 7, 0})},
    {"ZdaMonthEmptyIsZero", "GPZDA,201530,04,,2002,00,00", Zda({20, 15, 30, {}}, {2, 0, 4})},
    {"ZdaDayAndMonthAreCutTo8Bits", "GPZDA,201530,Z0,/0,2002", Zda({20, 15, 30, {}}, {2, 246, 164})},
    {"ZdaOneDigitDayTakesTheComma", "GPZDA,201530,4,07,2002", Zda({20, 15, 30, {}}, {2, 7, 36})},
    {"ZdaShortTimeSwallowsTheNextField", "GPZDA,20,04,07,2002,2003", Zda({20, 216, 36, {}}, {3, 20, 7})},
};
INSTANTIATE_TEST_SUITE_P(Rules, SpeedDateWalk, testing::ValuesIn(SPEED_DATE_CASES), RuleName<WalkCase>);

} // namespace
