#include "tools/NmeaWriter.h"

#include <array>
#include <cstring>
#include <limits>

#include <gtest/gtest.h>

#include "NmeaReading.h"

namespace
{

using kestgps::NmeaWriter;

constexpr double STEP = 0.0001 / 60.0; // [deg] the resolution of a position

_GPS_Data FullFix()
{
    _GPS_Data fix;
    fix.valid = 1;
    fix.date = {24, 5, 14};
    fix.time = {8, 30, 7, {}};
    fix.lonLat = {11.0 + 31.0 / 60.0, 48.0 + 7.038 / 60.0};
    fix.altitude = -12.5;
    fix.speed = 41.4848; // 22.4 knots
    fix.heading = 84.4;
    fix.satUsed = 8;
    fix.pdop = 1.7;
    fix.hdop = 0.92;
    fix.vdop = 1.4;
    for (const auto& [number, elevation, azimuth, signal] :
         {std::array{2, 17, 41, 31}, std::array{5, 64, 75, 44}, std::array{30, 11, 96, 0}}) {
        const auto slot = static_cast<std::size_t>(number - 1);
        fix.satellite.prn[slot] = static_cast<std::uint8_t>(number);
        fix.satellite.elevation[slot] = static_cast<std::uint8_t>(elevation);
        fix.satellite.azimuth[slot] = static_cast<std::uint16_t>(azimuth);
        fix.satellite.snr[slot] = static_cast<std::uint8_t>(signal);
        fix.satellite.used[slot] = signal != 0 ? 1 : 0;
    }
    fix.satellite.viewCount = 3;
    fix.satellite.listedCount = 3;
    return fix;
}

TEST(NmeaWriter, WritesAFixAsAReceiverDoes)
{
    const std::vector<std::string> expected = {
        "$GPZDA,083007.00,14,05,2024,00,00*6E\r\n",
        "$GPRMC,083007.00,A,4807.0380,N,01131.0000,E,22.40,84.40,140524,,,A*5A\r\n",
        "$GPVTG,84.40,T,,M,22.40,N,41.48,K,A*08\r\n",
        "$GPGLL,4807.0380,N,01131.0000,E,083007.00,A,A*67\r\n",
        "$GPGSA,A,3,02,05,,,,,,,,,,,1.70,0.92,1.40*0D\r\n",
        "$GPGSV,1,1,03,02,17,041,31,05,64,075,44,30,11,096,*40\r\n",
        "$GPGGA,083007.00,4807.0380,N,01131.0000,E,1,08,0.92,-12.5,M,,M,,*54\r\n",
    };
    EXPECT_EQ(LinesOf(NmeaWriter::Burst(FullFix())), expected);
}

TEST(NmeaWriter, WritesALostFixAsAReceiverDoes)
{
    const std::vector<std::string> expected = {
        "$GPZDA,083007.00,14,05,2024,00,00*6E\r\n",
        "$GPRMC,083007.00,V,,,,,,,140524,,,N*77\r\n",
        "$GPVTG,,,,,,,,,N*30\r\n",
        "$GPGLL,,,,,083007.00,V,N*46\r\n",
        "$GPGSA,A,1,,,,,,,,,,,,,,,*1E\r\n",
        "$GPGSV,1,1,00*79\r\n",
        "$GPGGA,083007.00,,,,,0,00,,,,,,,*44\r\n",
    };
    _GPS_Data lost;
    lost.date = {24, 5, 14};
    lost.time = {8, 30, 7, {}};
    EXPECT_EQ(LinesOf(NmeaWriter::Burst(lost)), expected);
    lost.valid = 1; // says so, but has no place on Earth
    EXPECT_EQ(LinesOf(NmeaWriter::Burst(lost)), expected);
}

TEST(NmeaWriter, AllThatIsWrittenIsReadBack)
{
    const _GPS_Data fix = FullFix();
    NmeaReading reading;
    for (const std::string& line : LinesOf(NmeaWriter::Burst(fix))) {
        EXPECT_TRUE(reading.Take(line)) << line;
    }
    const _GPS_Data& read = reading.record;
    EXPECT_EQ(std::memcmp(&read.date, &fix.date, sizeof fix.date), 0);
    EXPECT_EQ(std::memcmp(&read.time, &fix.time, sizeof fix.time), 0);
    EXPECT_EQ(std::memcmp(&read.satellite, &fix.satellite, sizeof fix.satellite), 0);
    EXPECT_EQ(read.satUsed, 8);
    EXPECT_EQ(read.altitude, -12.5);
    EXPECT_EQ(read.speed, 41.48);
    EXPECT_EQ(read.heading, 84.4);
    EXPECT_EQ(read.pdop, 1.7);
    EXPECT_EQ(read.hdop, 0.92);
    EXPECT_EQ(read.vdop, 1.4);
    EXPECT_EQ(read.valid, 1);
}

struct PlaceCase {
    const char* rule;
    double lat;
    double lon;
    const char* written;
};

const PlaceCase PLACES[] = {
    {"SouthAndWest", -33.5, -70.25, ",3330.0000,S,07015.0000,W,"},
    {"MinutesRoundUpToADegree", 9.9999999, 99.9999999, ",1000.0000,N,10000.0000,E,"},
    {"MinutesStayBelowADegree", 9.999999, 99.999999, ",0959.9999,N,09959.9999,E,"},
    {"BesideTheEdgeIsNotTheEdge", 89.99999999, 179.99999999, ",8959.9999,N,17959.9999,E,"},
    {"BesideTheOppositeEdge", -89.99999999, -179.99999999, ",8959.9999,S,17959.9999,W,"},
    {"HalfAStepRoundsAway", 0.0 + STEP / 2, -STEP / 2, ",0000.0001,N,00000.0001,W,"},
};

class Place : public testing::TestWithParam<PlaceCase>
{
};

TEST_P(Place, IsReadBackWithinTheResolution)
{
    _GPS_Data fix = FullFix();
    fix.lonLat = {GetParam().lon, GetParam().lat};
    for (const std::string& line : {NmeaWriter::GGA(fix), NmeaWriter::GLL(fix), NmeaWriter::RMC(fix)}) {
        NmeaReading reading;
        EXPECT_NE(line.find(GetParam().written), std::string::npos) << line;
        EXPECT_TRUE(reading.Take(line)) << line;
        EXPECT_NEAR(reading.record.lonLat.lat, fix.lonLat.lat, STEP) << line;
        EXPECT_NEAR(reading.record.lonLat.lon, fix.lonLat.lon, STEP) << line;
        EXPECT_EQ(reading.record.valid, 1) << line;
    }
}

INSTANTIATE_TEST_SUITE_P(Rules, Place, testing::ValuesIn(PLACES),
                         [](const auto& place) { return place.param.rule; });

TEST(NmeaWriter, HeadingRoundedToAFullCircleIsNorth)
{
    _GPS_Data fix = FullFix();
    fix.heading = 359.996;
    EXPECT_EQ(NmeaWriter::VTG(fix).substr(0, 14), "$GPVTG,0.00,T,");
    fix.heading = -90.0;
    EXPECT_EQ(NmeaWriter::VTG(fix).substr(0, 16), "$GPVTG,270.00,T,");
}

TEST(NmeaWriter, NoRecordMakesASentenceTooLongOrBadlyFramed)
{
    constexpr double HUGE_NUMBERS[] = {1e300, -1e300, std::numeric_limits<double>::infinity(),
                                       std::numeric_limits<double>::quiet_NaN()};
    for (const double number : HUGE_NUMBERS) {
        _GPS_Data fix;
        std::memset(static_cast<void*>(&fix), 0xFF, sizeof fix);
        for (std::size_t slot = 0; slot < GPS_SATELLITE_SLOTS; ++slot) {
            fix.satellite.prn[slot] = static_cast<std::uint8_t>(slot + 1);
        }
        fix.lonLat = {-179.99, -89.99};
        fix.speed = fix.altitude = fix.heading = fix.pdop = fix.hdop = fix.vdop = number;
        const auto lines = LinesOf(NmeaWriter::Burst(fix));
        EXPECT_EQ(lines.size(), 22U); // six, and 64 satellites four a sentence
        for (const std::string& line : lines) {
            EXPECT_LE(line.size(), NmeaWriter::LENGTH_MAX) << line;
            EXPECT_TRUE(GPS::CNMEAParser().VerifyChecksum(line.c_str())) << line;
            EXPECT_EQ(line.substr(line.size() - 2), "\r\n");
        }
    }
}

} // namespace
