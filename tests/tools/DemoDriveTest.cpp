#include "tools/DemoDrive.h"

#include <algorithm>
#include <map>

#include <gtest/gtest.h>

#include "NmeaReading.h"

namespace
{

/// The epochs of the drive, each closed by its GGA.
std::vector<_GPS_Data> Epochs()
{
    std::vector<_GPS_Data> epochs;
    NmeaReading reading;
    for (const std::string& line : LinesOf(kestgps::DemoDrive())) {
        reading.Take(line);
        if (line.compare(3, 3, "GGA") == 0) {
            epochs.push_back(reading.record);
            ClearRecord(reading.record);
        }
    }
    return epochs;
}

/// The longest run of epochs for which the test holds, the first and the last of the drive left out.
template <class TEST>
int LongestRunInside(const std::vector<_GPS_Data>& epochs, TEST holds)
{
    int longest = 0;
    int run = -1000; // until the test has failed once
    for (const _GPS_Data& epoch : epochs) {
        const bool here = holds(epoch);
        longest = here ? longest : std::max(longest, run);
        run = here ? run + 1 : 0;
    }
    return longest;
}

TEST(DemoDrive, EveryBurstHasEverySentence)
{
    std::map<std::string, int> count;
    for (const std::string& line : LinesOf(kestgps::DemoDrive())) {
        EXPECT_TRUE(GPS::CNMEAParser().VerifyChecksum(line.c_str())) << line;
        ++count[line.substr(0, 6)];
    }
    const int bursts = count["$GPGGA"];
    EXPECT_GE(bursts, 240);
    EXPECT_LE(bursts, 300);
    const std::map<std::string, int> expected = {
        {"$GPGGA", bursts}, {"$GPGLL", bursts}, {"$GPGSA", bursts}, {"$GPGSV", 3 * bursts},
        {"$GPRMC", bursts}, {"$GPVTG", bursts}, {"$GPZDA", bursts},
    };
    EXPECT_EQ(count, expected);
}

TEST(DemoDrive, WaitsAtALightAndLosesTheFixInATunnel)
{
    const auto epochs = Epochs();
    EXPECT_GE(LongestRunInside(epochs, [](const auto& fix) { return fix.valid != 0 && fix.speed == 0.0; }),
              15);
    EXPECT_EQ(LongestRunInside(epochs, [](const auto& fix) { return fix.valid == 0; }), 15);
    EXPECT_EQ(epochs.front().valid, 1);
    EXPECT_EQ(epochs.back().valid, 1);
}

} // namespace
