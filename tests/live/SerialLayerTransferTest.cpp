// What reads and writes of the serial layer bring, over time-outs, closing, and the coming and going of the
// device.
#include <atomic>
#include <chrono>
#include <csignal>
#include <future>
#include <string>
#include <thread>

#include <gtest/gtest.h>
#include <pthread.h>

#include "GpsLib/contracts/WinSerial.h"
#include "layers/platform/PortMap.h"
#include "tests/support/PseudoTerminal.h"

namespace
{

using std::chrono::milliseconds;
using support::PseudoTerminal;

// Interval, multiplier, constant; writes have no time-out.
constexpr COMMTIMEOUTS AS_THE_SYSTEM{100, 1, 100, 0, 0};
constexpr COMMTIMEOUTS FOREVER{0, 0, 0, 0, 0};
constexpr COMMTIMEOUTS SHORT_TOTAL{0, 0, 300, 0, 0};
constexpr COMMTIMEOUTS AT_ONCE{MAXDWORD, 0, 0, 0, 0};

struct Outcome {
    bool done;
    std::string bytes;
};

bool operator==(const Outcome& left, const Outcome& right)
{
    return left.done == right.done && left.bytes == right.bytes;
}

void PrintTo(const Outcome& outcome, std::ostream* out)
{
    *out << (outcome.done ? "done " : "failed ") << testing::PrintToString(outcome.bytes);
}

const Outcome FAILED{false, ""};
Outcome Done(const std::string& bytes)
{
    return {true, bytes};
}

class SerialLayerTransfer : public testing::Test
{
protected:
    SerialLayerTransfer()
    {
        platform::AssignPort(7, device.Path());
        port = CreateFileW(L"COM7:", GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    }
    ~SerialLayerTransfer() override
    {
        CloseHandle(port);
        platform::AssignPort(7, "");
    }

    void Limit(COMMTIMEOUTS timeouts) { ASSERT_TRUE(SetCommTimeouts(port, &timeouts)); }

    Outcome Read(DWORD length = 512)
    {
        std::string buffer(length, '\0');
        DWORD count = 0;
        const bool done = ReadFile(port, buffer.data(), length, &count, nullptr) != 0;
        return {done, buffer.substr(0, count)};
    }

    std::future<Outcome> ReadElsewhere()
    {
        return std::async(std::launch::async, [this] { return Read(); });
    }

    DWORD Waiting()
    {
        COMSTAT state{};
        DWORD errors = 1;
        EXPECT_TRUE(ClearCommError(port, &errors, &state));
        return state.cbInQue;
    }

    // The kernel hands bytes over in its own time.
    void AwaitBytes(DWORD count)
    {
        while (Waiting() < count) {
            std::this_thread::sleep_for(milliseconds(1));
        }
    }

    PseudoTerminal device;
    HANDLE port;
};

TEST_F(SerialLayerTransfer, GapDeliversAllThatIsThere)
{
    Limit(AS_THE_SYSTEM);
    device.Write("one\r\ntw");
    EXPECT_EQ(Read(), Done("one\r\ntw"));
    EXPECT_EQ(Read(), Done(""));
}

TEST_F(SerialLayerTransfer, FullReadEndsAtALineAndKeepsTheRest)
{
    Limit(FOREVER);
    device.Write("line one\r\nline two\r\nabcdefghi");
    EXPECT_EQ(Read(16), Done("line one\r\n"));
    EXPECT_EQ(Read(10), Done("line two\r\n"));
    EXPECT_EQ(Read(5), Done("abcde")) << "no line at all must not block";
    EXPECT_EQ(Read(3), Done("fgh"));
    EXPECT_EQ(Read(0), Done(""));
    device.Write("\r\n");
    EXPECT_EQ(Read(3), Done("i\r\n"));
}

TEST_F(SerialLayerTransfer, KeptBytesMoreThanTheNextReadAsksFor)
{
    Limit(FOREVER);
    device.Write("1\nabcdef");
    EXPECT_EQ(Read(8), Done("1\n"));
    EXPECT_EQ(Read(4), Done("abcd"));
    EXPECT_EQ(Read(2), Done("ef"));
}

TEST_F(SerialLayerTransfer, TotalTimeEndsAtALineAndKeepsTheRest)
{
    Limit(SHORT_TOTAL);
    device.Write("one\r\ntw");
    EXPECT_EQ(Read(), Done("one\r\n"));
    EXPECT_EQ(Read(), Done("")) << "half a line stays";
    EXPECT_EQ(Waiting(), 2U);
    device.Write("o\r\n");
    EXPECT_EQ(Read(), Done("two\r\n"));
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
            std::this_thread::sleep_for(milliseconds(15));
        }
    });
    std::string got;
    while (got.size() < all.size()) {
        const Outcome outcome = Read(100);
        EXPECT_TRUE(outcome.done);
        EXPECT_EQ(outcome.bytes.size() % line.size(), 0U) << testing::PrintToString(outcome.bytes);
        got += outcome.bytes;
    }
    writer.join();
    EXPECT_EQ(got, all);
}

TEST_F(SerialLayerTransfer, ReadAtOnceTakesWhatIsThereAndNeverWaits)
{
    Limit(AT_ONCE);
    EXPECT_EQ(Read(), Done(""));
    device.Write("one\r\ntw");
    AwaitBytes(7);
    EXPECT_EQ(Read(), Done("one\r\ntw"));
}

TEST_F(SerialLayerTransfer, ReadOfMoreThanThePortHoldsEndsThere)
{
    Limit(FOREVER);
    std::thread writer([&] { device.Write(std::string(5000, 'x')); });
    EXPECT_EQ(Read(100000), Done(std::string(4096, 'x')));
    EXPECT_EQ(Read(904), Done(std::string(904, 'x')));
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
    EXPECT_EQ(Read(11), Done(all.substr(0, 11))); // up to the line feed
    EXPECT_EQ(Read(245), Done(all.substr(11)));
    DWORD count = 0;
    EXPECT_TRUE(WriteFile(port, all.data(), 256, &count, nullptr));
    EXPECT_EQ(count, 256U);
    EXPECT_EQ(device.Read(256), all);
}

TEST_F(SerialLayerTransfer, PurgeDropsKeptBytesAndTheQueue)
{
    Limit(SHORT_TOTAL);
    device.Write("kept");
    EXPECT_EQ(Read(), Done(""));
    device.Write("queued");
    AwaitBytes(10);
    EXPECT_TRUE(PurgeComm(port, PURGE_TXCLEAR));
    EXPECT_EQ(Waiting(), 10U);
    EXPECT_TRUE(PurgeComm(port, PURGE_RXCLEAR));
    EXPECT_EQ(Waiting(), 0U);
    device.Write("new\n");
    EXPECT_EQ(Read(), Done("new\n"));
}

TEST_F(SerialLayerTransfer, SignalsDoNotEndARead)
{
    struct sigaction note {
    };
    note.sa_handler = [](int) {}; // without SA_RESTART
    sigaction(SIGUSR1, &note, nullptr);
    Limit(FOREVER);
    std::atomic<pthread_t> reader{};
    std::future<Outcome> outcome = std::async(std::launch::async, [&] {
        reader = pthread_self();
        return Read(4);
    });
    while (reader == pthread_t{}) {
        std::this_thread::yield();
    }
    device.Write("ab");
    for (int i = 0; i < 20; ++i) {
        pthread_kill(reader, SIGUSR1);
        std::this_thread::sleep_for(milliseconds(5));
    }
    device.Write("c\n");
    EXPECT_EQ(outcome.get(), Done("abc\n"));
}

TEST_F(SerialLayerTransfer, TwoReadersTakeTurns)
{
    Limit(FOREVER);
    std::future<Outcome> other = std::async(std::launch::async, [this] { return Read(6); });
    std::thread writer([&] { device.Write("same1\nsame2\n"); });
    const Outcome own = Read(6);
    writer.join();
    EXPECT_TRUE(own.done && other.valid());
    const std::string both = own.bytes + other.get().bytes;
    EXPECT_TRUE(both == "same1\nsame2\n" || both == "same2\nsame1\n") << both;
}

TEST_F(SerialLayerTransfer, CloseWakesReadersAndWritersThatWouldWaitForever)
{
    Limit(FOREVER);
    device.Write("half a line");
    std::future<Outcome> first = ReadElsewhere();
    std::future<Outcome> second = ReadElsewhere();
    std::future<bool> writer = std::async(std::launch::async, [this] {
        const std::string much(1 << 20, 'x'); // more than the line holds, and nobody takes it out
        DWORD count = 0;
        return WriteFile(port, much.data(), 1 << 20, &count, nullptr) != 0;
    });
    std::this_thread::sleep_for(milliseconds(200)); // so that they do wait
    EXPECT_TRUE(CloseHandle(port));
    EXPECT_EQ(first.get(), FAILED);
    EXPECT_EQ(second.get(), FAILED);
    EXPECT_FALSE(writer.get());
    EXPECT_EQ(Read(), FAILED);
}

TEST_F(SerialLayerTransfer, WriteEndsWithItsTimeout)
{
    Limit({0, 0, 0, 0, 100});
    const std::string much(1 << 20, 'x');
    DWORD count = 0;
    EXPECT_TRUE(WriteFile(port, much.data(), 1 << 20, &count, nullptr));
    EXPECT_GT(count, 0U);
    EXPECT_LT(count, 1U << 20);
}

TEST_F(SerialLayerTransfer, SameHandleGoesOnWhenTheDeviceIsBack)
{
    DCB settings{};
    GetCommState(port, &settings);
    settings.BaudRate = 4800;
    ASSERT_TRUE(SetCommState(port, &settings));
    Limit(SHORT_TOTAL);
    device.Write("torn");
    EXPECT_EQ(Read(), Done(""));
    device.HangUp();
    EXPECT_EQ(Read(), FAILED) << "the rest of that line won't come";
    DWORD count = 0;
    EXPECT_FALSE(WriteFile(port, "x", 1, &count, nullptr));

    Limit(FOREVER);
    std::future<Outcome> waiting = std::async(std::launch::async, [this] { return Read(5); });
    std::this_thread::sleep_for(milliseconds(250));
    device.Replug();
    device.Write("new\r\n");
    EXPECT_EQ(waiting.get(), Done("new\r\n"));

    DCB present{};
    EXPECT_TRUE(GetCommState(port, &present));
    EXPECT_EQ(present.BaudRate, 4800U);
    EXPECT_EQ(CreateFileW(L"COM7:", GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr),
              INVALID_HANDLE_VALUE);
    EXPECT_TRUE(WriteFile(port, "out", 3, &count, nullptr));
    EXPECT_EQ(device.Read(3), "out");
}

TEST_F(SerialLayerTransfer, WholeLinesCountAlthoughTheirDeviceHasGone)
{
    Limit({1000, 0, 3000, 0, 0});
    std::future<Outcome> waiting = ReadElsewhere();
    device.Write("whole\r\nand to");
    std::this_thread::sleep_for(milliseconds(400)); // what the reader hasn't by then goes with the device
    device.HangUp();
    EXPECT_EQ(waiting.get(), Done("whole\r\n"));
}

TEST_F(SerialLayerTransfer, CloseWakesAReadWhoseDeviceHasGone)
{
    Limit(FOREVER);
    std::future<Outcome> waiting = ReadElsewhere();
    device.HangUp();
    std::this_thread::sleep_for(milliseconds(250));
    EXPECT_TRUE(CloseHandle(port));
    EXPECT_EQ(waiting.get(), FAILED);
}

} // namespace
