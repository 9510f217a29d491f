// The whole live road: bytes on a port become fixes and events in the application.
#include <algorithm>
#include <atomic>
#include <chrono>
#include <string_view>
#include <thread>

#include "tests/live/LiveReceiver.h"
#include "tests/support/Row.h"

namespace
{

using live::Epoch;
using live::IsWhole;

class LiveRoad : public live::LiveReceiver
{
};

void Pause(int milliseconds)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

TEST_F(LiveRoad, EpochsArriveAsRecords)
{
    ASSERT_TRUE(device.OpenGPS());
    line.Write(Epoch(1234));
    ASSERT_TRUE(AwaitEpochs(1));
    _GPS_Data fix;
    ASSERT_TRUE(device.GetGPSData(fix));
    EXPECT_TRUE(IsWhole(fix));
    EXPECT_EQ(live::EpochOf(fix.altitude), 1234U);
    EXPECT_EQ(fix.speed, 34 * 1.852);
    EXPECT_EQ(fix.heading, 90.0);
    EXPECT_EQ(fix.date.day, 22);
}

TEST_F(LiveRoad, RecordsOutliveTheClose)
{
    ASSERT_TRUE(device.OpenGPS());
    line.Write(Epoch(77));
    ASSERT_TRUE(AwaitEpochs(1));
    device.CloseGPS();
    _GPS_Data_Without_Sate fix;
    ASSERT_TRUE(device.GetGPSDataWithoutSate(fix));
    EXPECT_TRUE(IsWhole(fix));
}

TEST_F(LiveRoad, CloseFromInsideAnEventChangesNothing)
{
    inEpoch = [this] { device.CloseGPS(); };
    ASSERT_TRUE(device.OpenGPS());
    for (unsigned k = 1; k <= 3; ++k) {
        line.Write(Epoch(k));
        ASSERT_TRUE(AwaitEpochs(k)) << "the device has closed";
    }
}

TEST_F(LiveRoad, QueriesAnswerInsideAnEvent)
{
    std::atomic<unsigned> seen{0};
    inEpoch = [this, &seen] {
        _GPS_Data fix;
        if (device.GetGPSData(fix) && IsWhole(fix) && device.IsGPSValid() &&
            device.GetVehicleCurrMoveState() != MOVESTATE_UNKNOWN) {
            seen = live::EpochOf(fix.altitude);
        }
    };
    ASSERT_TRUE(device.OpenGPS());
    line.Write(Epoch(42));
    ASSERT_TRUE(AwaitEpochs(1));
    EXPECT_EQ(seen, 42U);
}

/// Writes as a receiver at 4800 baud sends.
/// Result: the longest pause between two writes, which is longer than meant when this thread gets no
/// processor.
std::chrono::steady_clock::duration WriteSlowly(support::PseudoTerminal& line, std::string_view bytes)
{
    constexpr std::size_t PIECE = 5; // about 10 ms
    std::chrono::steady_clock::duration longest{};
    auto latest = std::chrono::steady_clock::now();
    for (std::size_t at = 0; at < bytes.size(); at += PIECE) {
        line.Write(bytes.substr(at, PIECE));
        longest = std::max(longest, std::chrono::steady_clock::now() - latest);
        latest = std::chrono::steady_clock::now();
        Pause(8);
    }
    return longest;
}

// At 4800 baud a burst outlasts one read, which then has to end between two sentences.
TEST_F(LiveRoad, SlowBurstLosesNoSentence)
{
    constexpr unsigned EPOCHS = 10;
    constexpr std::chrono::milliseconds NO_GAP(70); // far below the gap that ends a read
    std::string burst;
    for (unsigned k = 1; k <= EPOCHS; ++k) {
        burst += Epoch(k);
    }
    std::atomic<unsigned> whole{0};
    inEpoch = [this, &whole] {
        _GPS_Data fix;
        whole += device.GetGPSData(fix) && IsWhole(fix) ? 1U : 0U;
    };
    ASSERT_TRUE(device.OpenGPS());
    for (int tries = 0; tries < 5; ++tries) {
        whole = 0;
        const unsigned before = Epochs();
        const bool steady = WriteSlowly(line, burst) < NO_GAP;
        if (steady) {
            ASSERT_TRUE(AwaitEpochs(before + EPOCHS));
            EXPECT_EQ(whole, EPOCHS);
            return;
        }
        Pause(1000); // until what is still on its way has been taken
    }
    GTEST_SKIP() << "this machine is too busy to send without gaps";
}

struct Garbage {
    const char* rule;
    std::string bytes;
    std::size_t piece; // bytes at a time, with a gap behind each; 0 for all at once
};

using support::operator<<;

const Garbage GARBAGE[] = {
    {"Nuls", std::string(700, '\0'), 0},
    {"EightBitBytes", std::string(700, '\xFF'), 0},
    {"EndlessLine", std::string(5000, 'x'), 0},
    {"DollarsOnly", std::string(900, '$'), 0},
    {"LineEndsOnly", std::string(900, '\n'), 0},
    {"NulsInsideASentence", std::string("$GPGGA,10\0\0\0150,3114.2,N*00\r\n", 27), 0},
    {"SentencesWithoutLineEnds", "$GPGGA,,,,,,0,,,,,,,*66$GPRMC,,V,,,,,,,,,,N*53$GPGGA", 0},
    {"SingleBytesApart", "$GPGGA,,,,,", 1},
};

class LiveRoadGarbage : public live::LiveReceiver, public testing::WithParamInterface<Garbage>
{
};

TEST_P(LiveRoadGarbage, NextGoodEpochIsRight)
{
    ASSERT_TRUE(device.OpenGPS());
    const Garbage& garbage = GetParam();
    const std::size_t piece = garbage.piece == 0 ? garbage.bytes.size() : garbage.piece;
    for (std::size_t at = 0; at < garbage.bytes.size(); at += piece) {
        line.Write(garbage.bytes.substr(at, piece));
        Pause(250); // a gap, so that the read ends
    }
    Pause(1000); // until the reader has taken it all
    const unsigned before = Epochs();
    line.Write(Epoch(1) + Epoch(2));
    ASSERT_TRUE(AwaitEpochs(before + 2));
    _GPS_Data fix;
    ASSERT_TRUE(device.GetGPSData(fix));
    EXPECT_TRUE(IsWhole(fix));
    EXPECT_EQ(live::EpochOf(fix.altitude), 2U);
}

INSTANTIATE_TEST_SUITE_P(Rules, LiveRoadGarbage, testing::ValuesIn(GARBAGE), support::RuleName());

TEST_F(LiveRoad, ReplugInsideASentenceResumesFixes)
{
    ASSERT_TRUE(device.OpenGPS());
    for (unsigned k = 1; k <= 10; ++k) {
        const std::string epoch = Epoch(k);
        line.Write(epoch.substr(0, epoch.size() - 20));
        line.HangUp();
        Pause(150);
        line.Replug();
        _GPS_Data fix;
        const auto giveUp = std::chrono::steady_clock::now() + PATIENCE;
        do { // what is sent before the port is open again is lost
            line.Write(Epoch(100 + k));
            Pause(100);
            ASSERT_LT(std::chrono::steady_clock::now(), giveUp) << "no fix after replug " << k;
        } while (!device.GetGPSData(fix) || live::EpochOf(fix.altitude) != 100 + k);
        EXPECT_TRUE(IsWhole(fix));
    }
}

} // namespace
