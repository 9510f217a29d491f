// The two sentences without a position: VTG and ZDA. Each replaces the whole mask, whichever fields were
// present.
#include "GpsLib/nmea/CNMEAParser.h"

#include "GpsLib/nmea/DateTimeFields.h"
#include "GpsLib/nmea/FieldConversions.h"
#include "GpsLib/nmea/WalkFields.h"

namespace
{

struct SpeedFields {
    double heading = 0.0;
    double speed = 0.0;
};

void TakeCourse(CFieldCursor& field, SpeedFields& motion) noexcept
{
    motion.heading = field.TakeDouble();
}

void TakeSpeedKmh(CFieldCursor& field, SpeedFields& motion) noexcept
{
    motion.speed = field.TakeDouble();
}

constexpr FieldTaker<SpeedFields> VTG_FIELDS[] = {
    TakeCourse,   // 1, true
    nullptr,      // 2, letter
    nullptr,      // 3, magnetic course
    nullptr,      // 4, letter
    nullptr,      // 5, speed in knots
    nullptr,      // 6, letter
    TakeSpeedKmh, // 7, the last needed
};

void TakeClock(CFieldCursor& field, DateTimeFields& fields) noexcept
{
    TakeTime(field, fields);
}

// Day, month and year leave the walk at the field's start, so one that is too short swallows no other.
void TakeDay(CFieldCursor& field, DateTimeFields& fields) noexcept
{
    const auto lead = field.Lead<2>();
    fields.date.day =
        static_cast<std::uint8_t>(TwoDigits(lead[0], lead[1])); // cut to 8 bits, as the field is
}

void TakeMonth(CFieldCursor& field, DateTimeFields& fields) noexcept
{
    const auto lead = field.Lead<2>();
    fields.date.month = static_cast<std::uint8_t>(TwoDigits(lead[0], lead[1]));
}

/// Years from 2001 on come out as two digits, as RMC's do; earlier ones stay whole, 2000 too.
void TakeYear(CFieldCursor& field, DateTimeFields& fields) noexcept
{
    constexpr std::uint16_t LAST_WHOLE_YEAR = 2000;
    const auto lead = field.Lead<4>();
    auto year = static_cast<std::uint16_t>(TwoDigits(lead[0], lead[1]) * 100 + TwoDigits(lead[2], lead[3]));
    if (year > LAST_WHOLE_YEAR) {
        year = static_cast<std::uint16_t>(year - LAST_WHOLE_YEAR);
    }
    fields.date.year = year;
}

constexpr FieldTaker<DateTimeFields> ZDA_FIELDS[] = {
    TakeClock, // 1
    TakeDay,   // 2
    TakeMonth, // 3
    TakeYear,  // 4, the last needed; the local zone behind it is not read
};

} // namespace

namespace GPS
{

bool CNMEAParser::ParseVTG(const char* sentence, _GPS_Data& record) const noexcept
{
    SpeedFields motion;
    if (!PassesFrame(sentence) || !WalkFields(sentence, VTG_FIELDS, motion)) {
        return false;
    }
    record.mask = GPS_MASK_HEADING | GPS_MASK_SPEED;
    record.heading = motion.heading;
    record.speed = motion.speed;
    return true;
}

bool CNMEAParser::ParseZDA(const char* sentence, _GPS_Data& record) const noexcept
{
    DateTimeFields fields;
    if (!PassesFrame(sentence) || !WalkFields(sentence, ZDA_FIELDS, fields)) {
        return false;
    }
    record.mask = GPS_MASK_TIME | GPS_MASK_DATE;
    record.time = fields.time;
    record.date = fields.date;
    return true;
}

} // namespace GPS
