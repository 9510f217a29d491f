// What the port asks of the platform, call by call.
#include "GpsLib/comm/SerialCommPort.h"

#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "GpsLib/comm/CommPort.h"
#include "tests/support/FakeWorld.h"

namespace
{

using Fake = FakeSerialCalls;
using Calls = std::vector<std::string>;

const Calls CREATE = {"CreateFileW COM3: 0xc0000000 0 0x3 0"};
const Calls SET_STATE = {"SetCommMask 0x1", "SetupComm 0x200 0x200", "GetCommState", "SetCommState"};
const Calls SET_TIMEOUTS = {"GetCommTimeouts", "SetCommTimeouts"};
const Calls RAISE = {"EscapeCommFunction 0x5", "EscapeCommFunction 0x3", "PurgeComm 0xf"};
const Calls CLOSE = {"SetCommMask 0", "PurgeComm 0xc", "CloseHandle"};

Calls Joined(const std::vector<Calls>& parts)
{
    Calls all;
    for (const Calls& part : parts) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

const Calls OPEN = Joined({CREATE, SET_STATE, SET_TIMEOUTS, RAISE});

/// The calls made since the last time.
Calls Made()
{
    return std::exchange(Fake::journal, {});
}

class SerialPort : public support::FakeWorld
{
protected:
    bool Open() { return port.Open(3, 4800, 2, 7, 1); }

    SerialCommPort port;
};

TEST_F(SerialPort, OpensAndClosesInOrderWhateverFails)
{
    const struct {
        std::string failing;
        bool opens;
        Calls calls;
    } ROWS[] = {
        {"nothing", true, OPEN},
        {"CreateFileW", false, CREATE},
        {"SetCommState", false, Joined({CREATE, SET_STATE, CLOSE})},
        {"SetCommTimeouts", false, Joined({CREATE, SET_STATE, SET_TIMEOUTS, CLOSE})},
        {"SetCommMask", true, OPEN}, // this and the next ones are not examined
        {"SetupComm", true, OPEN},
        {"GetCommState", true, OPEN},
        {"GetCommTimeouts", true, OPEN},
        {"EscapeCommFunction", true, OPEN},
        {"PurgeComm", true, OPEN},
    };
    for (const auto& row : ROWS) {
        SCOPED_TRACE(row.failing);
        Fake::failing = {row.failing};
        EXPECT_EQ(Open(), row.opens);
        EXPECT_EQ(Made(), row.calls);
        EXPECT_TRUE(port.Close());
        EXPECT_EQ(Made(), row.opens ? CLOSE : Calls{});
        EXPECT_TRUE(port.Close());
        EXPECT_EQ(Made(), Calls{});
    }
}

TEST_F(SerialPort, NumberThatHasNoRoomInTheNameOpensNothing)
{
    for (const std::uint32_t number : {10U, 99U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
        EXPECT_FALSE(port.Open(number, 9600, 0, 8, 0)) << number;
    }
    EXPECT_EQ(Made(), Calls{});
    EXPECT_TRUE(port.Open(9, 9600, 0, 8, 0));
    EXPECT_EQ(Made().front(), "CreateFileW COM9: 0xc0000000 0 0x3 0");
}

TEST_F(SerialPort, SettingsReplaceTheirFieldsAndTheLowFlagsAloneAndAllFiveTimeouts)
{
    const COMMTIMEOUTS timeouts = {100, 1, 100, 0, 0};
    const std::uint32_t FLAGS[][2] = {
        {0x00000000, 0x00001093}, {0xFFFFFFFF, 0xFFFF9093}, {0x55552AAA, 0x55551093}}; // before, after
    for (const auto& flags : FLAGS) {
        DCB expected;
        std::memset(&expected, 0xA5, sizeof expected);
        unsigned char* const word = reinterpret_cast<unsigned char*>(&expected) + 2 * sizeof(DWORD);
        std::memcpy(word, &flags[0], sizeof flags[0]);
        Fake::settings = expected;
        Fake::timeouts = {7, 7, 7, 7, 7};
        std::memcpy(word, &flags[1], sizeof flags[1]);
        expected.BaudRate = 0x12345678;
        expected.Parity = 0x02; // of each of the three the low byte counts
        expected.ByteSize = 0x07;
        expected.StopBits = 0x01;
        ASSERT_TRUE(port.Open(3, 0x12345678, 0x102, 0xFFFFFF07, 0x201));
        EXPECT_EQ(std::memcmp(&Fake::settings, &expected, sizeof expected), 0) << std::hex << flags[0];
        EXPECT_EQ(std::memcmp(&Fake::timeouts, &timeouts, sizeof timeouts), 0);
        port.Close();
    }
}

TEST_F(SerialPort, TransfersBeginByClearingTheErrorAndAFailureClearsItAgain)
{
    ASSERT_TRUE(Open());
    Fake::Play("abc");
    Fake::PlayTimeOut();
    Fake::PlayFailure();
    const Calls good = {"ClearCommError", "ReadFile 0x8 zeroed"};
    const struct {
        bool done;
        std::uint32_t count;
        std::string bytes;
        Calls calls;
    } READS[] = {
        {true, 3, "abc", good}, {true, 0, "", good}, {false, 0, "", Joined({good, {"ClearCommError"}})}};
    Fake::failing = {"ClearCommError"}; // which is not examined
    for (const auto& read : READS) {
        std::string buffer(8, 'x');
        std::uint32_t count = 77;
        Made();
        EXPECT_EQ(port.Read(buffer.data(), 8, &count), read.done);
        EXPECT_EQ(count, read.count);
        EXPECT_EQ(buffer, read.bytes + std::string(8 - read.bytes.size(), '\0'));
        EXPECT_EQ(Made(), read.calls);
    }
    std::uint32_t count = 77;
    EXPECT_TRUE(port.Write("hello", 5, &count));
    EXPECT_EQ(count, 5U);
    EXPECT_EQ(Fake::written, "hello");
    EXPECT_EQ(Made(), (Calls{"ClearCommError", "WriteFile 0x5"}));
    Fake::failing = {"WriteFile"};
    EXPECT_FALSE(port.Write("hello", 5, &count));
    EXPECT_EQ(Made(), (Calls{"ClearCommError", "WriteFile 0x5", "ClearCommError"}));
}

using PortGuard = support::FakeWorld;

TEST_F(PortGuard, OpenPortKeepsItsSettingsAndAClosedOneIsLeftAlone)
{
    CommPort port;
    EXPECT_FALSE(port.IsOpen());
    EXPECT_TRUE(port.Close());
    EXPECT_EQ(Made(), Calls{});
    EXPECT_TRUE(port.Open(3, 4800, 2, 7, 1));
    EXPECT_TRUE(port.Open(5, 9600, 0, 8, 0));
    EXPECT_EQ(Made(), OPEN);
    EXPECT_EQ(Fake::settings.BaudRate, 4800U);
    EXPECT_TRUE(port.IsOpen());
    EXPECT_TRUE(port.Close());
    EXPECT_TRUE(port.Close());
    EXPECT_EQ(Made(), CLOSE);
    EXPECT_FALSE(port.IsOpen());
    std::string buffer(8, 'x');
    std::uint32_t count = 0;
    EXPECT_FALSE(port.Read(buffer.data(), 8, &count)) << "it forwards whether it is open or not";
    EXPECT_EQ(buffer, std::string(8, '\0'));
    EXPECT_FALSE(port.Write("a", 1, &count));
    const Calls made = Made();
    EXPECT_EQ(made.at(1), "ReadFile 0x8 zeroed on no port");
    EXPECT_EQ(made.at(4), "WriteFile 0x1 on no port");
}

} // namespace
