// GPSRecords.h: the plain records that carry one GPS epoch, and the two ways of emptying one.
//
// The records cross the library's interface by value and are copied as whole blocks, so the order and the
// width of their fields are part of the interface: append nothing, move nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

/// A position. 180.0, 90.0 together mean that no position has been stored.
struct alignas(8) tagLonLat { // also where doubles are content with 4, so that every record has one layout
    double lon;               ///< [deg] east positive
    double lat;               ///< [deg] north positive
};

/// The pair that means "no position". A parser starts from it and stores a position only when neither
/// coordinate equals its mark.
constexpr double NO_POSITION_LON = 180.0; // [deg]
constexpr double NO_POSITION_LAT = 90.0;  // [deg]

/// Result: true for a position strictly inside the ranges of longitude and latitude; false for one on their
/// edges, which "no position" is, and for what is no number.
inline bool IsOnEarth(const tagLonLat& position) noexcept
{
    return position.lon > -180.0 && position.lon < 180.0 && position.lat > -90.0 && position.lat < 90.0;
}

/// Bits of `_GPS_Data::mask`. A bit says that the field stood in the sentence, not that its value was stored.
/// GGA, GLL, RMC, VTG and ZDA replace the whole mask, GSA and GSV add to it.
///
/// What a device hands out ends with a GGA, so it has the bits of that sentence alone, as a rule 0x255. Rely
/// on ALTITUDE, TIME, POSITION, STATUS, DGPS, SATUSED and RTK; SPEED, DATE, HEADING and SATELLITE are missing
/// although RMC, VTG, GSA and GSV have filled their fields. ALTITUDE itself is missing when the GGA could not
/// be read (a wrong checksum, no altitude): then the bits are those of the sentences before it. A simulated
/// drive always has 0x35E.
///
/// Whether a speed is there, no bit says. Fields begin as 0 in each epoch, so a speed other than 0 came from
/// the receiver. A speed of 0 did too when `date.month` is not 0, if the receiver sends no ZDA: RMC brings
/// the date and, with a position, the speed. With VTG alone, 0 may be either. Smoothing puts its own speed
/// there.
enum GPS_MASK : std::uint32_t {
    GPS_MASK_ALTITUDE = 0x001,
    GPS_MASK_SPEED = 0x002,
    GPS_MASK_TIME = 0x004,
    GPS_MASK_DATE = 0x008,
    GPS_MASK_POSITION = 0x010,
    GPS_MASK_SATELLITE = 0x020,
    GPS_MASK_STATUS = 0x040,
    GPS_MASK_DGPS = 0x080,
    GPS_MASK_HEADING = 0x100,
    GPS_MASK_SATUSED = 0x200,
    GPS_MASK_RTK = 0x400,
};

/// Satellite numbers run from 1 to this; the data of satellite n stands in element n - 1 of each array.
constexpr std::size_t GPS_SATELLITE_SLOTS = 64;
/// `prn` of a slot that no satellite fills.
constexpr std::uint8_t GPS_SATELLITE_EMPTY = 255;

/// A UTC date as received, with no range test.
struct _GPS_Date {
    std::uint16_t year; ///< two digits, counted from 2000; a ZDA year up to 2000 stays whole
    std::uint8_t month;
    std::uint8_t day;
};

/// A UTC time as received, with no range test; fractions of a second are dropped.
struct _GPS_Time {
    std::uint8_t hour;
    std::uint8_t minute;
    std::uint8_t second;
    std::uint8_t reserved[3]; ///< zero; completes the block, which is always copied whole
};

/// The satellite block of a fix, indexed by satellite number less one.
struct _GPS_Satellite {
    std::uint8_t prn[GPS_SATELLITE_SLOTS];       ///< i + 1 where listed, 255 where not; 0 in a cleared record
    std::uint8_t elevation[GPS_SATELLITE_SLOTS]; ///< [deg]
    std::uint8_t snr[GPS_SATELLITE_SLOTS];       ///< [dB]
    std::uint16_t azimuth[GPS_SATELLITE_SLOTS];  ///< [deg]
    std::uint8_t used[GPS_SATELLITE_SLOTS];      ///< 1 when in the solution
    std::uint8_t viewCount;                      ///< satellites in view as stated, at most 64
    std::uint8_t listedCount;                    ///< satellite entries accepted over the group
};

/// One whole fix: what the parser fills, the devices keep and the application gets.
/// Default construction gives zero everywhere but for `prn` (255) and `lonLat` (no position);
/// `ClearRecord` gives zero everywhere. The two differ on purpose.
struct _GPS_Data {
    std::uint32_t mask; ///< set of GPS_MASK bits
    _GPS_Date date;     ///< UTC
    _GPS_Time time;     ///< UTC
    std::int32_t satUsed;
    _GPS_Satellite satellite;
    tagLonLat lonLat;         ///< [deg]
    double speed;             ///< [km/h] over ground; 0 also when none came, see GPS_MASK
    double altitude;          ///< [m] above mean sea level
    double heading;           ///< [deg] clockwise from true north; 0 also when none came
    double pdop;              ///< position dilution of precision
    double hdop;              ///< horizontal dilution of precision
    double vdop;              ///< vertical dilution of precision
    std::uint8_t valid;       ///< 1 when the fix counts as valid, else 0
    std::uint8_t reserved[2]; ///< zero; carried by every copy

    _GPS_Data() noexcept;
};

/// A fix without its satellite block.
struct _GPS_Data_Without_Sate {
    std::uint32_t mask; ///< set of GPS_MASK bits
    _GPS_Date date;     ///< UTC
    _GPS_Time time;     ///< UTC
    std::int32_t satUsed;
    tagLonLat lonLat; ///< [deg]
    double speed;     ///< [km/h] over ground
    double altitude;  ///< [m] above mean sea level
    double heading;   ///< [deg] clockwise from true north
    double pdop;
    double hdop;
    double vdop;
    std::uint8_t valid;
    std::uint8_t reserved[2];
};

/// Zero-fills the record, padding included: how whoever feeds sentences empties a working record.
inline void ClearRecord(_GPS_Data& record) noexcept
{
    std::memset(static_cast<void*>(&record), 0, sizeof record);
}

inline _GPS_Data::_GPS_Data() noexcept
{
    ClearRecord(*this);
    std::memset(satellite.prn, GPS_SATELLITE_EMPTY, sizeof satellite.prn);
    lonLat = {NO_POSITION_LON, NO_POSITION_LAT};
}

/// Copies every field that the narrow record has.
inline void CopyToWithoutSate(const _GPS_Data& source, _GPS_Data_Without_Sate& target) noexcept
{
    target.mask = source.mask;
    target.date = source.date;
    target.time = source.time;
    target.satUsed = source.satUsed;
    target.lonLat = source.lonLat;
    target.speed = source.speed;
    target.altitude = source.altitude;
    target.heading = source.heading;
    target.pdop = source.pdop;
    target.hdop = source.hdop;
    target.vdop = source.vdop;
    target.valid = source.valid;
    std::memcpy(target.reserved, source.reserved, sizeof target.reserved);
}

namespace GPS
{
using ::_GPS_Data;
using ::_GPS_Data_Without_Sate;
using ::_GPS_Satellite;
using ::tagLonLat;
} // namespace GPS

// The block as it crosses the interface, alike on 32-bit ARM and on 64-bit machines.
static_assert(offsetof(tagLonLat, lon) == 0 && offsetof(tagLonLat, lat) == 8);
static_assert(sizeof(tagLonLat) == 16);
static_assert(offsetof(_GPS_Date, year) == 0 && offsetof(_GPS_Date, month) == 2);
static_assert(offsetof(_GPS_Date, day) == 3 && sizeof(_GPS_Date) == 4);
static_assert(offsetof(_GPS_Time, hour) == 0 && offsetof(_GPS_Time, minute) == 1);
static_assert(offsetof(_GPS_Time, second) == 2 && offsetof(_GPS_Time, reserved) == 3);
static_assert(sizeof(_GPS_Time) == 6);
static_assert(offsetof(_GPS_Satellite, prn) == 0 && offsetof(_GPS_Satellite, elevation) == 64);
static_assert(offsetof(_GPS_Satellite, snr) == 128 && offsetof(_GPS_Satellite, azimuth) == 192);
static_assert(offsetof(_GPS_Satellite, used) == 320 && offsetof(_GPS_Satellite, viewCount) == 384);
static_assert(offsetof(_GPS_Satellite, listedCount) == 385 && sizeof(_GPS_Satellite) == 386);
static_assert(offsetof(_GPS_Data, mask) == 0 && offsetof(_GPS_Data, date) == 4);
static_assert(offsetof(_GPS_Data, time) == 8 && offsetof(_GPS_Data, satUsed) == 16);
static_assert(offsetof(_GPS_Data, satellite) == 20 && offsetof(_GPS_Data, lonLat) == 408);
static_assert(offsetof(_GPS_Data, speed) == 424 && offsetof(_GPS_Data, altitude) == 432);
static_assert(offsetof(_GPS_Data, heading) == 440 && offsetof(_GPS_Data, pdop) == 448);
static_assert(offsetof(_GPS_Data, hdop) == 456 && offsetof(_GPS_Data, vdop) == 464);
static_assert(offsetof(_GPS_Data, valid) == 472 && offsetof(_GPS_Data, reserved) == 473);
static_assert(sizeof(_GPS_Data) == 480);
static_assert(offsetof(_GPS_Data_Without_Sate, mask) == 0 && offsetof(_GPS_Data_Without_Sate, date) == 4);
static_assert(offsetof(_GPS_Data_Without_Sate, time) == 8 && offsetof(_GPS_Data_Without_Sate, satUsed) == 16);
static_assert(offsetof(_GPS_Data_Without_Sate, lonLat) == 24 &&
              offsetof(_GPS_Data_Without_Sate, speed) == 40);
static_assert(offsetof(_GPS_Data_Without_Sate, altitude) == 48 &&
              offsetof(_GPS_Data_Without_Sate, heading) == 56);
static_assert(offsetof(_GPS_Data_Without_Sate, pdop) == 64 && offsetof(_GPS_Data_Without_Sate, hdop) == 72);
static_assert(offsetof(_GPS_Data_Without_Sate, vdop) == 80 && offsetof(_GPS_Data_Without_Sate, valid) == 88);
static_assert(offsetof(_GPS_Data_Without_Sate, reserved) == 89 && sizeof(_GPS_Data_Without_Sate) == 96);
