// DateTimeFields.h: the time and date digits, which stand at fixed places and are taken without a test.
#pragma once

#include <cstddef>
#include <cstdint>

#include "GpsLib/nmea/CFieldCursor.h"
#include "GpsLib/nmea/FieldConversions.h"
#include "GpsLib/records/GPSRecords.h"

/// Time and date as a parser gathers them.
struct DateTimeFields {
    _GPS_Time time{};
    _GPS_Date date{};
};

/// hhmmss. The walk resumes at the sixth character, so fractions of a second are passed over.
inline void TakeTime(CFieldCursor& field, DateTimeFields& fields) noexcept
{
    constexpr std::size_t RESUME_AT = 5;
    const auto lead = field.Lead<6>();
    fields.time.hour =
        static_cast<std::uint8_t>(TwoDigits(lead[0], lead[1])); // cut to 8 bits, as the field is
    fields.time.minute = static_cast<std::uint8_t>(TwoDigits(lead[2], lead[3]));
    fields.time.second = static_cast<std::uint8_t>(TwoDigits(lead[4], lead[5]));
    field.Skip(RESUME_AT);
}

/// ddmmyy. No century is added.
inline void TakeDate(CFieldCursor& field, DateTimeFields& fields) noexcept
{
    const auto lead = field.Lead<6>();
    fields.date.day = static_cast<std::uint8_t>(TwoDigits(lead[0], lead[1]));
    fields.date.month = static_cast<std::uint8_t>(TwoDigits(lead[2], lead[3]));
    fields.date.year =
        static_cast<std::uint16_t>(TwoDigits(lead[4], lead[5])); // cut to 16 bits, as the field is
}
