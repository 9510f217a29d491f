// Reads and writes of the kernel's that do less than they are asked for, under the serial layer.
#include <atomic>
#include <cerrno>
#include <string>

#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "GpsLib/contracts/WinSerial.h"
#include "layers/platform/PortMap.h"
#include "tests/support/PseudoTerminal.h"
#include "tests/support/Row.h"

namespace
{

struct Fault {
    const char* rule;
    int error; // of every other call; 0 for none
    bool byteByByte;
};

std::atomic<const Fault*> fault{nullptr}; // on the thread that the layer works on
std::atomic<pthread_t> faultyThread{};
std::atomic<unsigned> faultyCalls{0};

/// Result: whether this call is to fail; else its length may have got shorter.
bool Fails(std::size_t& length)
{
    const Fault* const present = fault;
    if (present == nullptr || !pthread_equal(faultyThread, pthread_self())) {
        return false;
    }
    if (present->error != 0 && ++faultyCalls % 2 == 1) {
        errno = present->error;
        return true;
    }
    length = present->byteByByte && length > 1 ? 1 : length;
    return false;
}

} // namespace

// In front of the C library's.
extern "C" ssize_t read(int descriptor, void* bytes, std::size_t length)
{
    return Fails(length) ? -1 : syscall(SYS_read, descriptor, bytes, length);
}

extern "C" ssize_t write(int descriptor, const void* bytes, std::size_t length)
{
    return Fails(length) ? -1 : syscall(SYS_write, descriptor, bytes, length);
}

namespace
{

using support::operator<<; // how a failing row is printed

const Fault FAULTS[] = {
    {"Interrupted", EINTR, false},
    {"ReadyButThenNothingIsThere", EAGAIN, false},
    {"ByteByByte", 0, true},
    {"InterruptedByteByByte", EINTR, true},
};

class SerialLayerFault : public testing::TestWithParam<Fault>
{
};

INSTANTIATE_TEST_SUITE_P(Rules, SerialLayerFault, testing::ValuesIn(FAULTS), support::RuleName());

TEST_P(SerialLayerFault, CostsNoByte)
{
    const std::string line = "$GPGGA,101500,3100.0,N,12100.0,E,1*00\r\n";
    support::PseudoTerminal device;
    platform::AssignPort(7, device.Path());
    const HANDLE port =
        CreateFileW(L"COM7:", GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    COMMTIMEOUTS timeouts{0, 0, 10000, 0, 0}; // [ms] only a failing test waits for it
    ASSERT_TRUE(SetCommTimeouts(port, &timeouts));
    device.Write(line + line);

    faultyThread = pthread_self();
    fault = &GetParam();
    std::string bytes(2 * line.size(), '\0');
    DWORD taken = 0;
    DWORD sent = 0;
    const BOOL received = ReadFile(port, bytes.data(), static_cast<DWORD>(bytes.size()), &taken, nullptr);
    const BOOL written = WriteFile(port, line.data(), static_cast<DWORD>(line.size()), &sent, nullptr);
    fault = nullptr;

    EXPECT_TRUE(received);
    EXPECT_EQ(bytes.substr(0, taken), line + line);
    EXPECT_TRUE(written);
    EXPECT_EQ(sent, line.size());
    EXPECT_EQ(device.Read(line.size()), line);
    CloseHandle(port);
    platform::AssignPort(7, "");
}

} // namespace
