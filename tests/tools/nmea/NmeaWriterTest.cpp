#include "tools/nmea/NmeaWriter.h"

#include <cstring>
#include <limits>

#include <gtest/gtest.h>

#include "tests/support/Row.h"
#include "tests/tools/nmea/NmeaReading.h"

namespace
{

using kestgps::NmeaWriter;

constexpr double STEP = 0.0001 / 60.0; // [deg] the resolution of a position

const std::vector<std::string> FIX = {
    "$GPZDA,083007.00,14,05,2024,00,00*6E\r\n",
    "$GPRMC,083007.00,A,4807.0380,N,01131.0000,E,22.40,84.40,140524,,,A*5A\r\n",
    "$GPVTG,84.40,T,,M,22.40,N,41.48,K,A*08\r\n",
    "$GPGLL,4807.0380,N,01131.0000,E,083007.00,A,A*67\r\n",
    "$GPGSA,A,3,02,05,,,,,,,,,,,1.70,0.92,1.40*0D\r\n",
    "$GPGSV,1,1,03,02,17,041,31,05,64,075,44,30,11,096,*40\r\n",
    "$GPGGA,083007.00,4807.0380,N,01131.0000,E,1,08,0.92,-12.5,M,,M,,*54\r\n",
};
const std::vector<std::string> LOST = {
    "$GPZDA,083007.00,14,05,2024,00,00*6E\r\n",
    "$GPRMC,083007.00,V,,,,,,,140524,,,N*77\r\n",
    "$GPVTG,,,,,,,,,N*30\r\n",
    "$GPGLL,,,,,083007.00,V,N*46\r\n",
    "$GPGSA,A,1,,,,,,,,,,,,,,,*1E\r\n",
    "$GPGSV,1,1,00*79\r\n",
    "$GPGGA,083007.00,,,,,0,00,,,,,,,*44\r\n",
};

/// What the library reads of them.
_GPS_Data Read(const std::vector<std::string>& sentences)
{
    NmeaReading reading;
    for (const std::string& sentence : sentences) {
        reading.Take(sentence);
    }
    return reading.record;
}

TEST(NmeaWriter, WritesWhatAReceiverDoesOfWhatWasReadOfIt)
{
    EXPECT_EQ(LinesOf(NmeaWriter::Burst(Read(FIX))), FIX);
    _GPS_Data lost = Read(LOST);
    EXPECT_EQ(LinesOf(NmeaWriter::Burst(lost)), LOST);
    lost.valid = 1; // says so, but has no place on Earth
    lost.lonLat = _GPS_Data().lonLat;
    EXPECT_EQ(LinesOf(NmeaWriter::Burst(lost)), LOST);
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
    _GPS_Data fix = Read(FIX);
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

INSTANTIATE_TEST_SUITE_P(Rules, Place, testing::ValuesIn(PLACES), support::RuleName());

TEST(NmeaWriter, HeadingRoundedToAFullCircleIsNorth)
{
    _GPS_Data fix = Read(FIX);
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
