// What the serial layer takes for a port: names, exclusive use, settings, handles.
#include <algorithm>
#include <csignal>
#include <filesystem>
#include <iterator>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

#include "tests/layers/platform/SerialLayer.h"
#include "tests/support/Row.h"

namespace
{

using live::OpenNamed;

class SerialLayerPort : public live::SerialLayer
{
protected:
    ~SerialLayerPort() override { platform::AssignPort(8, ""); }
};

TEST(SerialLayerPortMap, NumberStandsForTheSystemsPortUntilAssigned)
{
    EXPECT_EQ(platform::PortPath(1), "/dev/ttyS0");
    EXPECT_EQ(platform::PortPath(9), "/dev/ttyS8");
    EXPECT_TRUE(platform::AssignPort(1, "/dev/ttyUSB3"));
    EXPECT_EQ(platform::PortPath(1), "/dev/ttyUSB3");
    EXPECT_TRUE(platform::AssignPort(1, ""));
    EXPECT_EQ(platform::PortPath(1), "/dev/ttyS0");
    for (const std::uint32_t none : {0U, 10U}) {
        EXPECT_FALSE(platform::AssignPort(none, "/dev/ttyUSB3"));
        EXPECT_EQ(platform::PortPath(none), "");
    }
}

TEST_F(SerialLayerPort, OpensNothingButAPortsNameAndATerminal)
{
    const wchar_t* const others[] = {L"",      L"COM7",   L"COM:",  L"COM-7:", L"com7:",
                                     L"LPT7:", L"COM7:x", L"COM0:", L"COM07:", nullptr};
    for (const wchar_t* name : others) {
        EXPECT_EQ(OpenNamed(name), INVALID_HANDLE_VALUE) << (name != nullptr ? name : L"null");
    }
    EXPECT_EQ(CreateFileW(L"COM7:", GENERIC_READ, 1, nullptr, OPEN_EXISTING, 0, nullptr),
              INVALID_HANDLE_VALUE);
    for (const char* path : {"/dev/null", "/dev/zero", "/tmp", "/nowhere"}) {
        platform::AssignPort(8, path);
        EXPECT_EQ(OpenNamed(L"COM8:"), INVALID_HANDLE_VALUE) << path;
    }
    const HANDLE port = OpenNamed(L"COM7:");
    EXPECT_NE(port, INVALID_HANDLE_VALUE);
    EXPECT_NE(port, nullptr);
    EXPECT_TRUE(CloseHandle(port));
}

bool OpensInAnotherProcess(const wchar_t* name)
{
    const pid_t child = fork();
    if (child == 0) {
        _exit(CloseHandle(OpenNamed(name)));
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 1;
}

TEST_F(SerialLayerPort, OpenOnceHowEverItIsNamedAndWhoEverAsks)
{
    platform::AssignPort(8, device.TerminalPath()); // past the link
    EXPECT_TRUE(OpensInAnotherProcess(L"COM7:"));
    const HANDLE port = OpenNamed(L"COM7:");
    ASSERT_NE(port, INVALID_HANDLE_VALUE);
    for (const wchar_t* name : {L"COM7:", L"COM8:"}) {
        EXPECT_EQ(OpenNamed(name), INVALID_HANDLE_VALUE) << name;
        EXPECT_FALSE(OpensInAnotherProcess(name)) << name;
    }
    CloseHandle(port);
    const HANDLE again = OpenNamed(L"COM8:");
    EXPECT_NE(again, INVALID_HANDLE_VALUE);
    CloseHandle(again);
}

TEST_F(SerialLayerPort, ClosedItIsFreeThoughAForkedProcessHoldsACopy)
{
    const HANDLE port = OpenNamed(L"COM7:");
    ASSERT_NE(port, INVALID_HANDLE_VALUE);
    const pid_t child = fork();
    if (child == 0) {
        pause();
        _exit(0);
    }
    CloseHandle(port);
    const HANDLE again = OpenNamed(L"COM7:");
    EXPECT_NE(again, INVALID_HANDLE_VALUE);
    CloseHandle(again);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
}

struct Settings {
    const char* rule;
    DWORD speed;
    BYTE parity;
    BYTE size;
    BYTE stop;
    bool taken; // by a pseudo-terminal, which has any speed but always eight bits without parity
};

const Settings SETTINGS[] = {
    {"TheReceiversUsual", 4800, NOPARITY, 8, ONESTOPBIT, true},
    {"Fastest", 4000000, NOPARITY, 8, ONESTOPBIT, true},
    {"SpeedWithoutAConstant", 14401, NOPARITY, 8, TWOSTOPBITS, true},
    {"SpeedZeroWouldHangUp", 0, NOPARITY, 8, ONESTOPBIT, false},
    {"ParityThatTheDriverDrops", 9600, EVENPARITY, 8, ONESTOPBIT, false},
    {"SizeThatTheDriverWidens", 9600, NOPARITY, 7, ONESTOPBIT, false},
    {"BothOfThem", 9600, EVENPARITY, 7, ONESTOPBIT, false},
    {"MarkParity", 9600, MARKPARITY, 8, ONESTOPBIT, false},
    {"NoSuchParity", 9600, 5, 8, ONESTOPBIT, false},
    {"FourBits", 9600, NOPARITY, 4, ONESTOPBIT, false},
    {"NineBits", 9600, NOPARITY, 9, ONESTOPBIT, false},
    {"OneAndAHalfStopBits", 9600, NOPARITY, 8, ONE5STOPBITS, false},
    {"NoSuchStopBits", 9600, NOPARITY, 8, 3, false},
};

using support::operator<<; // how a failing row is printed

class SerialLayerSettings : public SerialLayerPort, public testing::WithParamInterface<Settings>
{
};

INSTANTIATE_TEST_SUITE_P(Rows, SerialLayerSettings, testing::ValuesIn(SETTINGS), support::RuleName());

TEST_P(SerialLayerSettings, AreTakenIfTheDriverHasThemAndElseAsTheyWere)
{
    const HANDLE port = OpenNamed(L"COM7:");
    const Settings& asked = GetParam();
    DCB settings{};
    settings.BaudRate = 38400;
    settings.ByteSize = 8;
    settings.fInX = 1;
    ASSERT_TRUE(SetCommState(port, &settings));
    settings.fInX = 0;
    settings.BaudRate = asked.speed;
    settings.Parity = asked.parity;
    settings.ByteSize = asked.size;
    settings.StopBits = asked.stop;
    EXPECT_EQ(SetCommState(port, &settings) != 0, asked.taken);
    DCB present{};
    ASSERT_TRUE(GetCommState(port, &present));
    EXPECT_EQ(present.BaudRate, asked.taken ? asked.speed : 38400);
    EXPECT_EQ(present.StopBits, asked.taken ? asked.stop : ONESTOPBIT);
    EXPECT_EQ(present.ByteSize, 8);
    EXPECT_EQ(present.Parity, NOPARITY);
    EXPECT_EQ(present.fInX, asked.taken ? 0U : 1U);
    CloseHandle(port);
}

std::ptrdiff_t OpenDescriptors()
{
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

TEST_F(SerialLayerPort, HandlesAreNeverGivenTwiceAndDescriptorsAllGivenBack)
{
    std::vector<HANDLE> handles;
    const std::ptrdiff_t before = OpenDescriptors();
    for (int cycle = 0; cycle < 50; ++cycle) {
        handles.push_back(OpenNamed(L"COM7:"));
        EXPECT_EQ(OpenNamed(L"COM7:"), INVALID_HANDLE_VALUE);
        EXPECT_TRUE(CloseHandle(handles.back()));
    }
    EXPECT_EQ(OpenDescriptors(), before);
    std::sort(handles.begin(), handles.end());
    EXPECT_EQ(std::adjacent_find(handles.begin(), handles.end()), handles.end());
    EXPECT_EQ(std::count(handles.begin(), handles.end(), INVALID_HANDLE_VALUE), 0);
}

TEST_F(SerialLayerPort, StaleHandleDoesNothing)
{
    const HANDLE closed = OpenNamed(L"COM7:");
    CloseHandle(closed);
    const HANDLE open = OpenNamed(L"COM7:"); // which must not suffer
    for (const HANDLE stale : {closed, INVALID_HANDLE_VALUE, HANDLE{nullptr}}) {
        DCB settings{};
        COMMTIMEOUTS timeouts{};
        COMSTAT state{};
        DWORD errors = 0;
        char byte = 'x';
        DWORD count = 9;
        EXPECT_FALSE(ReadFile(stale, &byte, 1, &count, nullptr));
        EXPECT_EQ(count, 0U);
        EXPECT_EQ(byte, 'x');
        EXPECT_FALSE(WriteFile(stale, &byte, 1, &count, nullptr));
        EXPECT_FALSE(SetCommMask(stale, EV_RXCHAR) || SetupComm(stale, 512, 512));
        EXPECT_FALSE(GetCommState(stale, &settings) || SetCommState(stale, &settings));
        EXPECT_FALSE(GetCommTimeouts(stale, &timeouts) || SetCommTimeouts(stale, &timeouts));
        EXPECT_FALSE(EscapeCommFunction(stale, SETDTR) || PurgeComm(stale, PURGE_RXCLEAR));
        EXPECT_FALSE(ClearCommError(stale, &errors, &state) || CloseHandle(stale));
    }
    EXPECT_TRUE(CloseHandle(open));
}

} // namespace
