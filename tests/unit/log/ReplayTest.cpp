// What a log becomes again.
#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "GpsLib/log/CGPSLogDevice.h"
#include "GpsLib/log/CGPSLogDeviceImpl.h"
#include "tests/support/Row.h"
#include "tests/support/Sentence.h"
#include "tests/support/TemporaryFolder.h"

namespace
{

using GPS::CGPSLogDevice;
using support::Sentence;

const std::string GSA = Sentence("GPGSA,A,3,03,07,,,,,,,,,,,1.9,0.9,1.7");
const std::string RMC = Sentence("GPRMC,101500,A,3114.250,N,12129.500,E,10.0,045.0,110326,,");
const std::string GGA = Sentence("GPGGA,101500,3114.250,N,12129.500,E,1,08,0.9,12.5,M,,M,,");
const std::string GGA_NEXT = Sentence("GPGGA,101501,3114.300,N,12129.600,E,1,09,0.9,13.5,M,,M,,");
const std::string GGA_NO_FIX = Sentence("GPGGA,101502,3114.300,N,12129.600,E,0,00,0.9,13.5,M,,M,,");
const std::string GGA_NO_POSITION = Sentence("GPGGA,101503,,,,,0,00,,,M,,M,,");
const std::string LINE_OF_83 = Sentence("GPGGA" + std::string(71, ',')).insert(6, 1, 'x');
const std::string FOREIGN = Sentence("GLGSV,1,1,00");

class Replay : public testing::Test
{
protected:
    bool OpenPath(std::string path) { return device.OpenLogFileForRead(path.data()); }
    bool Open(const std::string& bytes) { return OpenPath(folder.File("log", bytes)); }
    bool Next() { return device.GetGPSData(fix); }

    support::TemporaryFolder folder;
    CGPSLogDevice device;
    _GPS_Data fix;
};

TEST_F(Replay, EpochsBuildUpAsTheyDoLive)
{
    ASSERT_TRUE(Open(GSA + RMC + GGA + GGA_NEXT));
    ASSERT_TRUE(Next());
    EXPECT_EQ(fix.satUsed, 8);
    EXPECT_EQ(fix.speed, 10.0 * 1.852);
    EXPECT_EQ(fix.satellite.used[6], 1);
    ASSERT_TRUE(Next());
    EXPECT_EQ(fix.satUsed, 9);
    EXPECT_EQ(fix.speed, 0.0) << "the record begins each time from nothing";
    EXPECT_FALSE(Next());
    EXPECT_FALSE(Next()) << "and stays at the end";
}

std::string WithBareLf(std::string text)
{
    text.erase(text.size() - 2, 1);
    return text;
}

TEST_F(Replay, GgaEndsARecordThatHasALongitude)
{
    const support::Row<std::string, std::vector<int>> ROWS[] = {
        // The seconds of the records that come out.
        {"nothing in an empty file", "", {}},
        {"nothing without GGA", RMC + RMC + GSA, {}},
        {"record without valid fix", GGA_NO_FIX, {2}},
        {"GGA without position ends no record", GGA_NO_POSITION + GGA, {0}},
        {"but one that has a position", RMC + GGA_NO_POSITION + GGA_NEXT, {0, 1}},
        {"bad checksum ends one too", RMC + "$GPGGA,10*00\r\n", {0}},
        {"foreign talker wipes the epoch", RMC + FOREIGN + GGA_NO_POSITION + GGA, {0}},
        {"bare LF is repaired", WithBareLf(GGA) + WithBareLf(GGA_NEXT), {0, 1}},
        {"last line needs no line end", GGA.substr(0, GGA.size() - 2), {0}},
        {"longitude zero", Sentence("GPGGA,101504,3114.250,N,00000.000,E,1,08,0.9,12.5,M,,M,,"), {}},
        {"long line comes in pieces", std::string(254, 'x') + RMC + GGA_NO_POSITION, {0}},
        {"line of 83 bytes is refused", RMC + LINE_OF_83 + GGA, {0}},
    };
    for (const auto& row : ROWS) {
        std::vector<int> seconds;
        EXPECT_TRUE(Open(row.given));
        while (Next()) {
            seconds.push_back(fix.time.second);
        }
        EXPECT_EQ(seconds, row.expected) << row.rule;
    }
}

TEST_F(Replay, NulLinesEndOneCallEachAndTheLoopOfTheHeaderReadsToTheEnd)
{
    ASSERT_TRUE(
        Open(GGA + std::string(100000, '\0') + "\n" + GGA_NEXT + std::string("\0\n", 2) + GGA_NO_FIX));
    std::vector<int> seconds;
    for (int misses = 0; misses < 65536; ++misses) {
        while (device.GetGPSData(fix)) {
            seconds.push_back(fix.time.second);
            misses = 0;
        }
    }
    EXPECT_EQ(seconds, std::vector<int>({0, 1, 2}));
    ASSERT_TRUE(Open(std::string("\0\n", 2) + GGA));
    EXPECT_FALSE(Next());
    EXPECT_TRUE(Next());
}

TEST_F(Replay, LastRecordAnswersWithoutReading)
{
    _GPS_Data_Without_Sate narrow{};
    _GPS_Satellite satellites{};
    ASSERT_TRUE(Open(GSA + GGA + GGA_NO_FIX));
    EXPECT_FALSE(device.GetWholeSate(satellites)) << "before the first record";
    ASSERT_TRUE(Next());
    EXPECT_TRUE(device.GetGPSDataWithoutSate(narrow));
    EXPECT_EQ(narrow.altitude, 12.5);
    EXPECT_TRUE(device.GetWholeSate(satellites));
    EXPECT_EQ(satellites.used[2], 1);
    ASSERT_TRUE(Next());
    EXPECT_FALSE(device.GetGPSDataWithoutSate(narrow)) << "the last record has no valid fix";
    EXPECT_FALSE(device.GetWholeSate(satellites));
    ASSERT_TRUE(Open(GSA));
    EXPECT_FALSE(Next());
    EXPECT_FALSE(device.GetWholeSate(satellites));
    ASSERT_TRUE(Open(GGA_NEXT));
    ASSERT_TRUE(Next());
    EXPECT_FALSE(Next());
    EXPECT_TRUE(device.GetGPSDataWithoutSate(narrow)) << "also at the file's end";
    EXPECT_EQ(narrow.altitude, 13.5);
}

TEST_F(Replay, OpeningAgainStartsAnewAndAFailureEndsTheOldLog)
{
    ASSERT_TRUE(Open(GGA));
    ASSERT_TRUE(Next());
    ASSERT_TRUE(Open(GGA));
    EXPECT_FALSE(device.OpenLogFileForRead(nullptr)) << "changes nothing";
    EXPECT_TRUE(Next());
    ASSERT_TRUE(Open(GGA));
    EXPECT_FALSE(OpenPath(folder.Path("missing")));
    EXPECT_FALSE(Next());
    OpenPath(folder.Path(""));
    EXPECT_FALSE(Next()) << "a folder gives no line";
}

TEST_F(Replay, SmoothsFromTheSecondFixOn)
{
    const std::string rmcNext = Sentence("GPRMC,101501,A,3114.300,N,12129.600,E,10.0,045.0,110326,,");
    device.OpenFilter();
    ASSERT_TRUE(Open(RMC + GGA + rmcNext + GGA_NEXT));
    ASSERT_TRUE(Next());
    EXPECT_EQ(fix.speed, 10.0 * 1.852) << "the first fix seeds";
    EXPECT_NEAR(fix.lonLat.lon, 121.0 + 29.5 / 60.0, 1e-12);
    ASSERT_TRUE(Next());
    EXPECT_LT(fix.lonLat.lon, 121.0 + 29.59 / 60.0) << "short of a fix that jumps ahead";
    EXPECT_GT(fix.lonLat.lon, 121.0 + 29.51 / 60.0) << "and ahead of the one before";
    EXPECT_EQ(fix.altitude, 13.5);
    _GPS_Data_Without_Sate narrow{};
    EXPECT_TRUE(device.GetGPSDataWithoutSate(narrow));
    EXPECT_EQ(narrow.lonLat.lon, fix.lonLat.lon) << "the record as it was given";
    device.CloseFilter();
    ASSERT_TRUE(Open(GGA));
    ASSERT_TRUE(Next());
    EXPECT_EQ(fix.lonLat.lon, 121.0 + 29.5 * 0.016666666666666666);
}

// The velocity model leaves the speed, and begins each log anew with the fix that it finds.
TEST_F(Replay, SmoothsByTheModelThatIsChosen)
{
    const std::string drive = RMC + GGA +
                              Sentence("GPRMC,101501,A,3114.252,N,12129.502,E,10.0,045.0,110326,,") +
                              Sentence("GPGGA,101501,3114.252,N,12129.502,E,1,09,0.9,13.5,M,,M,,");
    device.SetFilterModel(FILTERMODEL_VELOCITY);
    device.OpenFilter();
    for (int replays = 0; replays < 2; ++replays) {
        ASSERT_TRUE(Open(drive));
        ASSERT_TRUE(Next());
        EXPECT_NEAR(fix.lonLat.lon, 121.0 + 29.5 / 60.0, 1e-12);
        ASSERT_TRUE(Next());
        EXPECT_GT(std::fabs(fix.lonLat.lon - 121.0 - 29.502 / 60.0), 1e-8);
        EXPECT_EQ(fix.speed, 10.0 * 1.852);
    }
}

TEST_F(Replay, SatelliteGroupIsItsOwn)
{
    ASSERT_TRUE(Open(Sentence("GPGSV,2,1,02,05,10,100,30") + GGA));
    ASSERT_TRUE(Next());
    device = CGPSLogDevice();
    ASSERT_TRUE(Open(Sentence("GPGSV,2,2,02,09,20,200,40") + GGA + Sentence("GPGSV,2,1,02,11,20,200,40") +
                     GGA + FOREIGN + Sentence("GPGSV,2,2,02,12,20,200,40") + GGA));
    ASSERT_TRUE(Next());
    EXPECT_EQ(fix.satellite.prn[8], 9);
    EXPECT_EQ(fix.satellite.prn[4], 255) << "from the other replay";
    ASSERT_TRUE(Next());
    ASSERT_TRUE(Next());
    EXPECT_EQ(fix.satellite.listedCount, 2) << "over the end of a record and a wipe";
}

TEST_F(Replay, ReadLineGivesLinesWithTheirTrueLength)
{
    const struct {
        const char* rule;
        std::string bytes;
        std::int32_t length;
        std::string line;
    } ROWS[] = {
        {"CR LF", "ab\r\n", 4, "ab\r\n"},
        {"bare LF grows by one", "ab\n", 4, "ab\r\n"},
        {"two bytes are left alone", "a\n", 2, "a\n"},
        {"no line end", "abc", 3, "abc"},
        {"a piece of a long line", std::string(300, 'x'), 254, std::string(254, 'x')},
        {"the longest repaired line", std::string(253, 'x') + "\n", 255, std::string(253, 'x') + "\r\n"},
        {"a line that begins with NUL", std::string("\0ab\n", 4), 0, ""},
        {"the end", "", -1, ""},
    };
    for (const auto& row : ROWS) {
        GPS::CGPSLogDeviceImpl log;
        std::string line(255, 'z');
        EXPECT_EQ(log.ReadLine(line.data(), 255), 0) << "no log open";
        ASSERT_TRUE(log.OpenLogFileForRead(folder.File("log", row.bytes).c_str()));
        EXPECT_EQ(log.ReadLine(line.data(), 255), row.length) << row.rule;
        EXPECT_STREQ(line.c_str(), row.line.c_str()) << row.rule;
    }
}

} // namespace
