// What reads and writes of the serial layer bring, over time-outs, closing, and the coming and going of the
// device.
#include <thread>
#include <vector>

#include "GpsLib/contracts/KestThread.h"
#include "tests/layers/platform/SerialLayer.h"
#include "tests/support/Row.h"

namespace
{

using KestThread::Thread;
using support::operator<<; // how a failing row is printed

// Interval, multiplier, constant; writes have no time-out.
constexpr COMMTIMEOUTS AS_THE_SYSTEM{100, 1, 100, 0, 0};
constexpr COMMTIMEOUTS FOREVER{0, 0, 0, 0, 0};
constexpr COMMTIMEOUTS SHORT_TOTAL{0, 0, 300, 0, 0};
constexpr COMMTIMEOUTS AT_ONCE{MAXDWORD, 0, 0, 0, 0};

const std::string MUCH(1 << 20, 'x'); // more than the line holds

class SerialLayerTransfer : public live::SerialTransfer
{
};

struct ReadCase {
    const char* rule;
    COMMTIMEOUTS limits;
    std::vector<live::Exchange> exchanges;
};

const ReadCase READS[] = {
    {"GapDeliversAllThatIsThere", AS_THE_SYSTEM, {{"one\r\ntw", 512, "one\r\ntw"}, {"", 512, ""}}},
    {"FullReadEndsAtALineAndKeepsTheRest",
     FOREVER,
     {{"line one\r\nline two\r\nabcdefghi", 16, "line one\r\n"}, {"", 10, "line two\r\n"}}},
    {"FullReadWithoutALineMustNotBlock",
     FOREVER,
     {{"abcdefghi", 5, "abcde"}, {"", 3, "fgh"}, {"", 0, ""}, {"\r\n", 3, "i\r\n"}}},
    {"KeptBytesMoreThanTheNextReadAsksFor",
     FOREVER,
     {{"1\nabcdef", 8, "1\n"}, {"", 4, "abcd"}, {"", 2, "ef"}}},
    {"TotalTimeEndsAtALineAndKeepsTheRest",
     SHORT_TOTAL,
     {{"one\r\ntw", 512, "one\r\n"}, {"", 512, ""}, {"o\r\n", 512, "two\r\n"}}},
    {"ReadAtOnceTakesWhatIsThereAndNeverWaits", AT_ONCE, {{"", 512, ""}, {"one\r\ntw", 512, "one\r\ntw"}}},
};

class SerialLayerRead : public SerialLayerTransfer, public testing::WithParamInterface<ReadCase>
{
};

INSTANTIATE_TEST_SUITE_P(Rules, SerialLayerRead, testing::ValuesIn(READS), support::RuleName());

TEST_P(SerialLayerRead, Brings)
{
    Limit(GetParam().limits);
    ExpectExchanges(GetParam().exchanges);
}

TEST_F(SerialLayerTransfer, NoReadCutsALineThatKeepsComing)
{
    Limit({5000, 0, 100, 0, 0}); // gaps of this writer, even a starved one, are none
    const std::string line = "$GPGLL,3114.250,N,12129.500,E,101500,A*27\r\n";
    std::string all;
    for (int i = 0; i < 12; ++i) {
        all += line;
    }
    std::thread writer([&] {
        for (std::size_t i = 0; i < all.size(); i += 11) {
            device.Write(all.substr(i, 11));
            Thread::sleep(15);
        }
    });
    std::string got;
    while (got.size() < all.size()) {
        const std::string read = Read(100).value_or("failed");
        EXPECT_EQ(read.size() % line.size(), 0U) << testing::PrintToString(read);
        got += read;
    }
    writer.join();
    EXPECT_EQ(got, all);
}

TEST_F(SerialLayerTransfer, ReadOfMoreThanThePortHoldsEndsThere)
{
    Limit(FOREVER);
    std::thread writer([&] { device.Write(std::string(5000, 'x')); });
    EXPECT_EQ(Read(100000), std::string(4096, 'x'));
    EXPECT_EQ(Read(904), std::string(904, 'x'));
    writer.join();
}

TEST_F(SerialLayerTransfer, EveryByteGoesThroughUnchangedBothWays)
{
    Limit(FOREVER);
    std::string all;
    for (int i = 0; i < 256; ++i) {
        all += static_cast<char>(i);
    }
    device.Write(all);
    EXPECT_EQ(Read(11), all.substr(0, 11)); // up to the line feed
    EXPECT_EQ(Read(245), all.substr(11));
    EXPECT_EQ(Write(all), 256U);
    EXPECT_EQ(device.Read(256), all);
}

TEST_F(SerialLayerTransfer, PurgeDropsKeptBytesAndTheQueue)
{
    Limit(SHORT_TOTAL);
    device.Write("kept");
    EXPECT_EQ(Read(), "");
    SendAndAwait("queued");
    EXPECT_TRUE(PurgeComm(port, PURGE_TXCLEAR));
    EXPECT_EQ(Waiting(), 10U);
    EXPECT_TRUE(PurgeComm(port, PURGE_RXCLEAR));
    EXPECT_EQ(Waiting(), 0U);
    device.Write("new\n");
    EXPECT_EQ(Read(), "new\n");
}

TEST_F(SerialLayerTransfer, TwoReadersTakeTurns)
{
    Limit(FOREVER);
    auto other = ReadElsewhere(6);
    std::thread writer([&] { device.Write("same1\nsame2\n"); });
    const std::string own = Read(6).value_or("failed");
    writer.join();
    const std::string both = own + other.get().value_or("failed");
    EXPECT_TRUE(both == "same1\nsame2\n" || both == "same2\nsame1\n") << both;
}

TEST_F(SerialLayerTransfer, CloseWakesReadersAndWritersThatWouldWaitForever)
{
    Limit(FOREVER);
    device.Write("half a line");
    auto first = ReadElsewhere();
    auto second = ReadElsewhere();
    auto writer = std::async(std::launch::async, [this] { return Write(MUCH); }); // nobody takes it out
    Thread::sleep(200);                                                           // so that they do wait
    EXPECT_TRUE(CloseHandle(port));
    EXPECT_EQ(first.get(), std::nullopt);
    EXPECT_EQ(second.get(), std::nullopt);
    EXPECT_EQ(writer.get(), std::nullopt);
    EXPECT_EQ(Read(), std::nullopt);
}

TEST_F(SerialLayerTransfer, WriteEndsWithItsTimeout)
{
    Limit({0, 0, 0, 0, 100});
    const auto count = Write(MUCH);
    EXPECT_GT(count, 0U);
    EXPECT_LT(count, MUCH.size());
}

TEST_F(SerialLayerTransfer, SameHandleGoesOnWhenTheDeviceIsBack)
{
    DCB settings{};
    GetCommState(port, &settings);
    settings.BaudRate = 4800;
    ASSERT_TRUE(SetCommState(port, &settings));
    Limit(SHORT_TOTAL);
    device.Write("torn");
    EXPECT_EQ(Read(), "");
    device.HangUp();
    EXPECT_EQ(Read(), std::nullopt) << "the rest of that line won't come";
    EXPECT_EQ(Write("x"), std::nullopt);

    Limit(FOREVER);
    auto waiting = ReadElsewhere(5);
    Thread::sleep(250);
    device.Replug();
    device.Write("new\r\n");
    EXPECT_EQ(waiting.get(), "new\r\n");

    settings.BaudRate = 0;
    EXPECT_TRUE(GetCommState(port, &settings));
    EXPECT_EQ(settings.BaudRate, 4800U);
    EXPECT_EQ(live::OpenNamed(L"COM7:"), INVALID_HANDLE_VALUE);
    EXPECT_EQ(Write("out"), 3U);
    EXPECT_EQ(device.Read(3), "out");
}

TEST_F(SerialLayerTransfer, WholeLinesCountAlthoughTheirDeviceHasGone)
{
    Limit({1000, 0, 3000, 0, 0});
    auto waiting = ReadElsewhere();
    device.Write("whole\r\nand to");
    Thread::sleep(400); // what the reader hasn't by then goes with the device
    device.HangUp();
    EXPECT_EQ(waiting.get(), "whole\r\n");
}

TEST_F(SerialLayerTransfer, CloseWakesAReadWhoseDeviceHasGone)
{
    Limit(FOREVER);
    auto waiting = ReadElsewhere();
    device.HangUp();
    Thread::sleep(250);
    EXPECT_TRUE(CloseHandle(port));
    EXPECT_EQ(waiting.get(), std::nullopt);
}

} // namespace
