// The three sentences that carry a position: GGA, GLL and RMC.
#include "GpsLib/nmea/CNMEAParser.h"

#include "GpsLib/nmea/DateTimeFields.h"
#include "GpsLib/nmea/FieldConversions.h"
#include "GpsLib/nmea/WalkFields.h"

namespace
{

constexpr double MINUTES_TO_DEGREES =
    0.016666666666666666;              // nearest double to 1/60; multiplied, never divided
constexpr double KNOTS_TO_KMH = 1.852; // the international nautical mile in kilometres

/// What the three parsers read before they touch the record.
struct PositionFields : DateTimeFields {
    std::uint32_t mask = 0;
    tagLonLat lonLat{NO_POSITION_LON, NO_POSITION_LAT};
    int positionParts = 0; // of latitude, its hemisphere and longitude
    std::uint8_t valid = 0;
    std::int32_t satUsed = 0;
    double altitude = 0.0;
    double speed = 0.0;
    double heading = 0.0;

    /// A position has been stored in `lonLat`. Exact on purpose: these are marks, not measures.
    bool PassesGuard() const noexcept
    {
        return lonLat.lon != NO_POSITION_LON && lonLat.lat != NO_POSITION_LAT;
    }
};

void TakeFixTime(CFieldCursor& field, PositionFields& fix) noexcept
{
    TakeTime(field, fix);
    fix.mask |= GPS_MASK_TIME;
}

// ddmm.mmmm
void TakeLatitude(CFieldCursor& field, PositionFields& fix) noexcept
{
    const auto lead = field.Lead<2>();
    const double degrees = DigitValue(lead[0]) * 10.0 + lead[1] - 48.0;
    field.Skip(2);
    fix.lonLat.lat = field.TakeDouble() * MINUTES_TO_DEGREES + degrees;
    ++fix.positionParts;
}

// dddmm.mmmm
void TakeLongitude(CFieldCursor& field, PositionFields& fix) noexcept
{
    const auto lead = field.Lead<3>();
    const double degrees = (DigitValue(lead[0]) * 10.0 + lead[1] - 48.0) * 10.0 + lead[2] - 48.0;
    field.Skip(3);
    fix.lonLat.lon = field.TakeDouble() * MINUTES_TO_DEGREES + degrees;
    ++fix.positionParts;
}

void TakeNorthSouth(CFieldCursor& field, PositionFields& fix) noexcept
{
    if (field.First() == 'S') {
        fix.lonLat.lat = fix.lonLat.lat * -1.0;
    }
    ++fix.positionParts;
}

void TakeEastWest(CFieldCursor& field, PositionFields& fix) noexcept
{
    if (field.First() == 'W') {
        fix.lonLat.lon = fix.lonLat.lon * -1.0;
    }
    if (fix.positionParts == 3) {
        fix.mask |= GPS_MASK_POSITION;
    }
}

void TakeQuality(CFieldCursor& field, PositionFields& fix) noexcept
{
    fix.mask |= GPS_MASK_STATUS;
    switch (field.First()) {
    case '1': // fix
        fix.valid = 1;
        break;
    case '2': // differential fix
        fix.valid = 1;
        fix.mask |= GPS_MASK_DGPS;
        break;
    case '4': // real-time kinematic fix
        fix.valid = 1;
        fix.mask |= GPS_MASK_RTK;
        break;
    default: // none, estimated, manual and the like
        fix.valid = 0;
        break;
    }
}

void TakeStatus(CFieldCursor& field, PositionFields& fix) noexcept
{
    fix.valid = field.First() == 'A' ? 1 : 0;
    fix.mask |= GPS_MASK_STATUS;
}

void TakeSatUsed(CFieldCursor& field, PositionFields& fix) noexcept
{
    fix.satUsed = field.TakeInt();
    fix.mask |= GPS_MASK_SATUSED;
}

void TakeAltitude(CFieldCursor& field, PositionFields& fix) noexcept
{
    fix.altitude = field.TakeDouble();
    fix.mask |= GPS_MASK_ALTITUDE;
}

void TakeSpeedKnots(CFieldCursor& field, PositionFields& fix) noexcept
{
    fix.speed = field.TakeDouble() * KNOTS_TO_KMH;
    fix.mask |= GPS_MASK_SPEED;
}

void TakeCourse(CFieldCursor& field, PositionFields& fix) noexcept
{
    fix.heading = field.TakeDouble();
    fix.mask |= GPS_MASK_HEADING;
}

void TakeFixDate(CFieldCursor& field, PositionFields& fix) noexcept
{
    TakeDate(field, fix);
    fix.mask |= GPS_MASK_DATE;
}

constexpr FieldTaker<PositionFields> GGA_FIELDS[] = {
    TakeFixTime,    // 1
    TakeLatitude,   // 2
    TakeNorthSouth, // 3
    TakeLongitude,  // 4
    TakeEastWest,   // 5
    TakeQuality,    // 6
    TakeSatUsed,    // 7
    nullptr,        // 8, horizontal dilution: GSA's is the one that is kept
    TakeAltitude,   // 9, the last needed
};

constexpr FieldTaker<PositionFields> GLL_FIELDS[] = {
    TakeLatitude,   // 1
    TakeNorthSouth, // 2
    TakeLongitude,  // 3
    TakeEastWest,   // 4
    TakeFixTime,    // 5
    TakeStatus,     // 6, the last needed
};

constexpr FieldTaker<PositionFields> RMC_FIELDS[] = {
    TakeFixTime,    // 1
    TakeStatus,     // 2
    TakeLatitude,   // 3
    TakeNorthSouth, // 4
    TakeLongitude,  // 5
    TakeEastWest,   // 6
    TakeSpeedKnots, // 7
    TakeCourse,     // 8
    TakeFixDate,    // 9, the last needed
};

void CopyOutGGA(const PositionFields& fix, _GPS_Data& record) noexcept
{
    record.mask = fix.mask;
    record.time = fix.time;
    if (!fix.PassesGuard()) {
        record.valid = 0;
        return;
    }
    record.valid = fix.valid;
    record.lonLat = fix.lonLat;
    record.satUsed = fix.satUsed;
    record.altitude = fix.altitude;
}

void CopyOutGLL(const PositionFields& fix, _GPS_Data& record) noexcept
{
    record.mask = fix.mask;
    record.time = fix.time;
    if (!fix.PassesGuard()) {
        record.valid = 0;
        return;
    }
    record.lonLat = fix.lonLat;
    record.valid = fix.valid;
}

/// The record already tells the status of this very second, so that a GGA of the same second is not
/// overruled.
bool HasStatusOf(const _GPS_Data& record, const _GPS_Time& time) noexcept
{
    return (record.mask & GPS_MASK_STATUS) != 0 && record.time.hour == time.hour &&
           record.time.minute == time.minute && record.time.second == time.second;
}

void CopyOutRMC(const PositionFields& fix, _GPS_Data& record) noexcept
{
    if (!HasStatusOf(record, fix.time)) {
        record.valid = fix.valid;
    }
    record.mask = fix.mask;
    record.time = fix.time;
    record.date = fix.date;
    if (!fix.PassesGuard()) {
        record.valid = 0;
        return;
    }
    record.lonLat = fix.lonLat;
    record.speed = fix.speed;
    record.heading = fix.heading;
}

} // namespace

namespace GPS
{

bool CNMEAParser::ParseGGA(const char* sentence, _GPS_Data& record) const noexcept
{
    PositionFields fix;
    if (!PassesFrame(sentence) || !WalkFields(sentence, GGA_FIELDS, fix)) {
        return false;
    }
    CopyOutGGA(fix, record);
    return true;
}

bool CNMEAParser::ParseGLL(const char* sentence, _GPS_Data& record) const noexcept
{
    PositionFields fix;
    if (!PassesFrame(sentence) || !WalkFields(sentence, GLL_FIELDS, fix)) {
        return false;
    }
    CopyOutGLL(fix, record);
    return true;
}

bool CNMEAParser::ParseRMC(const char* sentence, _GPS_Data& record) const noexcept
{
    PositionFields fix;
    if (!PassesFrame(sentence) || !WalkFields(sentence, RMC_FIELDS, fix)) {
        return false;
    }
    CopyOutRMC(fix, record);
    return true;
}

} // namespace GPS
