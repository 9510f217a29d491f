// The whole live road: bytes on a port become fixes and events in the application.
#include <chrono>
#include <string>

#include "tests/live/LiveReceiver.h"

namespace
{

using KestThread::Thread;
using live::Epoch;
using live::IsWhole;

class LiveRoad : public live::LiveReceiver
{
};

TEST_F(LiveRoad, EpochsArriveAsRecordsInsideTheirEventAndOutliveTheClose)
{
    _GPS_Data inside;
    inEpoch = [this, &inside] {
        EXPECT_TRUE(device.GetGPSData(inside) && device.IsGPSValid());
        EXPECT_NE(device.GetVehicleCurrMoveState(), MOVESTATE_UNKNOWN);
    };
    ASSERT_TRUE(device.OpenGPS());
    line.Write(Epoch(1234));
    ASSERT_TRUE(AwaitEpochs(1));
    device.CloseGPS();
    _GPS_Data_Without_Sate after;
    ASSERT_TRUE(device.GetGPSDataWithoutSate(after));
    EXPECT_TRUE(IsWhole(inside) && IsWhole(after));
    EXPECT_EQ(inside.altitude, 1234.0);
    EXPECT_EQ(inside.speed, 34 * 1.852);
    EXPECT_EQ(inside.heading, 90.0);
    EXPECT_EQ(inside.date.day, 22);
}

/// The sentence from a receiver that names all systems together.
std::string Combined(const std::string& sentence)
{
    return support::Sentence("GN" + sentence.substr(3, sentence.find('*') - 3));
}

TEST_F(LiveRoad, FixesOfAReceiverOfTodayArriveWithTheAdapter)
{
    platform::PortOptions options;
    options.adapt = true;
    options.prompt = true;
    platform::AssignPort(PORT, line.Path(), options);
    ASSERT_TRUE(device.OpenGPS());
    for (unsigned k = 1; k <= 5; ++k) {
        const std::string epoch = Epoch(k);
        const std::size_t rmc = epoch.find('\n') + 1;
        line.Write(Combined(epoch.substr(0, rmc)) + support::Sentence("GLGSV,1,1,01,70,10,100,30") +
                   Combined(epoch.substr(rmc)));
        ASSERT_TRUE(AwaitEpochs(k));
        _GPS_Data fix;
        ASSERT_TRUE(device.GetGPSData(fix));
        EXPECT_TRUE(IsWhole(fix));
        EXPECT_EQ(fix.date.day, 22) << "the sentence of another system wiped it";
    }
}

struct Garbage {
    const char* rule;
    std::string bytes;
    std::size_t piece; // bytes at a time, with a gap behind each; 0 for all at once
};

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

TEST_F(LiveRoad, EpochBehindGarbageIsRight)
{
    ASSERT_TRUE(device.OpenGPS());
    for (const Garbage& garbage : GARBAGE) {
        const std::size_t piece = garbage.piece == 0 ? garbage.bytes.size() : garbage.piece;
        for (std::size_t at = 0; at < garbage.bytes.size(); at += piece) {
            line.Write(garbage.bytes.substr(at, piece));
            Thread::sleep(250); // a gap, so that the read ends
        }
        Thread::sleep(1000); // until the reader has taken it all
        const unsigned before = epochs;
        line.Write(Epoch(1) + Epoch(2));
        ASSERT_TRUE(AwaitEpochs(before + 2)) << garbage.rule;
        _GPS_Data fix;
        ASSERT_TRUE(device.GetGPSData(fix));
        EXPECT_TRUE(IsWhole(fix)) << garbage.rule;
        EXPECT_EQ(fix.altitude, 2.0) << garbage.rule;
    }
}

TEST_F(LiveRoad, ReplugInsideASentenceResumesFixes)
{
    ASSERT_TRUE(device.OpenGPS());
    for (unsigned k = 1; k <= 10; ++k) {
        const std::string epoch = Epoch(k);
        line.Write(epoch.substr(0, epoch.size() - 20));
        line.HangUp();
        Thread::sleep(150);
        line.Replug();
        _GPS_Data fix;
        const auto giveUp = std::chrono::steady_clock::now() + PATIENCE;
        do { // what is sent before the port is open again is lost
            line.Write(Epoch(100 + k));
            Thread::sleep(100);
            ASSERT_LT(std::chrono::steady_clock::now(), giveUp) << "no fix after replug " << k;
        } while (!device.GetGPSData(fix) || fix.altitude != 100.0 + k);
        EXPECT_TRUE(IsWhole(fix));
    }
}

} // namespace
