#include "tools/receiver/Emulator.h"

#include <gtest/gtest.h>

#include "tests/tools/receiver/LineReader.h"
#include "tools/receiver/PlayingThread.h"

namespace
{

using kestgps::Emulator;
using kestgps::PlayingThread;

constexpr kestgps::LineSettings AT_ONCE = {4000000, 0, 1000000};
const auto NOTHING = [] {};

/// More than the system keeps for a line that nobody reads; every byte there is; both line ends; a cut tail.
std::string LongText()
{
    std::string text;
    for (int burst = 0; burst < 3000; ++burst) {
        text += "$GPGGA," + std::to_string(burst) + ",\r\n$GPGSV,1,1,00*79\n";
        for (int byte = 0; byte < 256; ++byte) {
            text += static_cast<char>(byte);
        }
        text += '\n';
    }
    return text + "$GPGG";
}

TEST(Emulator, PlaysEveryByteAsItIsToAReaderThatComesLateAndLeavesAndComesBack)
{
    const std::string text = LongText();
    Emulator emulator(text, AT_ONCE);
    const PlayingThread player(emulator, NOTHING);
    std::string read = LineReader(emulator.DevicePath()).Read(100000);
    read += LineReader(emulator.DevicePath()).ReadToEnd();
    EXPECT_EQ(read.size(), text.size());
    EXPECT_TRUE(read == text);
}

TEST(Emulator, CountsWhatItPlayed)
{
    Emulator emulator("tail\n$GPGGA,1\n$GPGGA,2\nx$GPGGA\n$GPRMC,3\n$GPGG", AT_ONCE);
    {
        const PlayingThread player(emulator, NOTHING);
        LineReader(emulator.DevicePath()).ReadToEnd();
    }
    EXPECT_EQ(emulator.Played().Bytes(), 45U);
    EXPECT_EQ(emulator.Played().Sentences(), 3U);
    EXPECT_EQ(emulator.Played().Gga(), 2U);
}

TEST(Emulator, RepeatsUntilStoppedAndThenHangsUp)
{
    Emulator emulator("$GPGGA,1\r\n$GPGGA,2\r\n", AT_ONCE, Emulator::REPEAT::FOR_EVER);
    LineReader reader(emulator.DevicePath());
    {
        const PlayingThread player(emulator, NOTHING);
        EXPECT_EQ(reader.Read(50), "$GPGGA,1\r\n$GPGGA,2\r\n$GPGGA,1\r\n$GPGGA,2\r\n$GPGGA,1\r\n");
    }
    reader.ReadToEnd(); // comes to an end
    EXPECT_FALSE(LineReader(emulator.DevicePath()).IsOpen());
}

TEST(Emulator, StopsWhileNobodyReadsAndWhileItRests)
{
    Emulator stuck(LongText(), AT_ONCE);
    Emulator resting("$GPGGA,1\n$GPGGA,2\n", {9600, 3600, 1});
    { // each destructor comes back
        const PlayingThread first(stuck, NOTHING);
        const PlayingThread second(resting, NOTHING);
        EXPECT_EQ(LineReader(resting.DevicePath()).Read(9), "$GPGGA,1\n");
    }
    EXPECT_LT(stuck.Played().Bytes(), LongText().size());
    EXPECT_EQ(resting.Played().Bytes(), 9U);
}

} // namespace
