#include "tools/drive/DemoDrive.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/tools/nmea/NmeaReading.h"

namespace
{

/// A letter for each epoch of the drive: driving, parked or lost.
std::string Epochs()
{
    std::string epochs;
    NmeaReading reading;
    for (const std::string& line : LinesOf(kestgps::DemoDrive())) {
        reading.Take(line);
        if (line.compare(3, 3, "GGA") == 0) {
            const char moving = reading.record.speed == 0.0 ? 'p' : 'd';
            epochs += reading.record.valid == 0 ? 'l' : moving;
            ClearRecord(reading.record);
        }
    }
    return epochs;
}

TEST(DemoDrive, WaitsAtALightAndLosesTheFixInATunnel)
{
    EXPECT_THAT(Epochs(), testing::ContainsRegex("dp{15,}d"));
    EXPECT_THAT(Epochs(), testing::MatchesRegex("[pd]+l{15}[pd]+"));
}

} // namespace
