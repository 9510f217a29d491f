#include "tools/drive/DemoDrive.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "tools/nmea/NmeaWriter.h"

namespace kestgps
{

namespace
{

struct Leg {
    int seconds;
    int acceleration; // [0.1 km/h] each second
    int turn;         // [deg] each second, clockwise
    bool underSky;
};

constexpr Leg LEGS[] = {
    {8, 0, 0, true},    // parked
    {8, 60, 0, true},   // off, up to 48 km/h
    {22, 0, 0, true},   // along the street
    {5, -40, 0, true},  // down to 28 km/h
    {10, 0, 9, true},   // right at the crossing
    {8, 40, 0, true},   // up to 60 km/h
    {20, 0, 0, true},   //
    {15, 0, -2, true},  // a long bend to the left
    {10, -60, 0, true}, // down before the light
    {22, 0, 0, true},   // red
    {10, 60, 0, true},  // green
    {18, 0, 0, true},   //
    {5, 40, 0, true},   // up to 80 km/h
    {10, 0, 1, true},   //
    {15, 0, 0, false},  // the tunnel
    {20, 0, 0, true},   // out again
    {10, -50, 0, true}, // down to 30 km/h
    {10, 0, -9, true},  // left at the crossing
    {4, 50, 0, true},   // up to 50 km/h
    {25, 0, 0, true},   //
    {10, -50, 0, true}, // down
    {8, 0, 0, true},    // parked
};

struct Satellite {
    std::uint8_t number;
    std::uint8_t elevation; // [deg]
    std::uint16_t azimuth;  // [deg]
    std::uint8_t signal;    // [dB] about which it swings
    bool used;
};

constexpr Satellite SKY[] = {
    {2, 17, 41, 31, true},   {5, 64, 75, 44, true},   {7, 38, 302, 40, true},  {9, 8, 212, 24, false},
    {13, 52, 188, 43, true}, {15, 29, 127, 36, true}, {18, 6, 330, 21, false}, {20, 71, 254, 46, true},
    {24, 22, 268, 33, true}, {29, 45, 14, 41, true},  {30, 11, 96, 26, false},
};

// Invented: where round degrees meet.
constexpr tagLonLat START = {10.0, 50.0};
constexpr double MM_A_DEGREE_LON = 71.7e6;       // at 50 degrees north, WGS 84
constexpr double MM_A_DEGREE_LAT = 111.2e6;      // likewise
constexpr int START_SECOND = 8 * 3600 + 30 * 60; // of the day, UTC
constexpr _GPS_Date DAY = {24, 5, 14};
constexpr int CIRCLE = 360; // [deg]

/// Bhaskara's approximation of the sine, 0.2 % of 1 off at most: whole numbers, so that the drive is the same
/// on every machine. Result: [0.001]
std::int64_t SineMille(int degrees) noexcept
{
    const int angle = ((degrees % CIRCLE) + CIRCLE) % CIRCLE;
    const std::int64_t half = angle % (CIRCLE / 2);
    const std::int64_t product = half * (CIRCLE / 2 - half);
    const std::int64_t sine = 4000 * product / (40500 - product);
    return angle < CIRCLE / 2 ? sine : -sine;
}

/// The car, second by second.
class Car
{
public:
    void Drive(const Leg& leg) noexcept
    {
        speed = std::max(speed + leg.acceleration, 0);
        heading = (heading + leg.turn + CIRCLE) % CIRCLE;
        const std::int64_t way = std::int64_t{speed} * 1000 / 36; // [mm] in this second
        east += way * SineMille(heading) / 1000;
        north += way * SineMille(heading + CIRCLE / 4) / 1000;
    }

    void TellMotion(_GPS_Data& fix) const noexcept
    {
        fix.speed = speed / 10.0;
        fix.heading = heading;
        fix.lonLat.lon = START.lon + static_cast<double>(east) / MM_A_DEGREE_LON;
        fix.lonLat.lat = START.lat + static_cast<double>(north) / MM_A_DEGREE_LAT;
        fix.altitude = 210.0 + static_cast<double>(north) / 100e3; // a slope of 1 in 100
    }

private:
    int speed = 0;         // [0.1 km/h]
    int heading = 20;      // [deg]
    std::int64_t east = 0; // [mm] from the start
    std::int64_t north = 0;
};

void TellTime(int second, _GPS_Data& fix) noexcept
{
    const int ofDay = START_SECOND + second;
    fix.date = DAY;
    fix.time.hour = static_cast<std::uint8_t>(ofDay / 3600);
    fix.time.minute = static_cast<std::uint8_t>(ofDay / 60 % 60);
    fix.time.second = static_cast<std::uint8_t>(ofDay % 60);
}

void TellSky(int second, bool underSky, _GPS_Data& fix) noexcept
{
    for (const Satellite& seen : SKY) {
        const std::size_t slot = seen.number - 1U;
        const int swing = (second + seen.number * 5) / 3 % 4; // [dB]
        fix.satellite.prn[slot] = seen.number;
        fix.satellite.elevation[slot] = seen.elevation;
        fix.satellite.azimuth[slot] = seen.azimuth;
        fix.satellite.snr[slot] = underSky ? static_cast<std::uint8_t>(seen.signal + swing) : std::uint8_t{0};
        fix.satellite.used[slot] = underSky && seen.used ? 1 : 0;
        fix.satUsed += fix.satellite.used[slot];
    }
    fix.satellite.viewCount = static_cast<std::uint8_t>(std::size(SKY));
    const int dilution = 9 + second / 30 % 4; // [0.1]
    fix.hdop = underSky ? dilution / 10.0 : 0.0;
    fix.pdop = underSky ? fix.hdop + 0.8 : 0.0;
    fix.vdop = underSky ? fix.hdop + 0.5 : 0.0;
}

} // namespace

std::string DemoDrive()
{
    std::string text;
    Car car;
    int second = 0;
    for (const Leg& leg : LEGS) {
        for (int i = 0; i < leg.seconds; ++i, ++second) {
            _GPS_Data fix;
            car.Drive(leg);
            car.TellMotion(fix);
            TellTime(second, fix);
            TellSky(second, leg.underSky, fix);
            fix.valid = leg.underSky ? 1 : 0;
            text += NmeaWriter::Burst(fix);
        }
    }
    return text;
}

} // namespace kestgps
