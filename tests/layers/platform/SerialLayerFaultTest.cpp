// Reads and writes of the kernel's that do less than they are asked for, under the serial layer.
#include <cerrno>

#include <sys/syscall.h>
#include <unistd.h>

#include "tests/layers/platform/SerialLayer.h"
#include "tests/support/Row.h"

namespace
{

struct Fault {
    const char* rule;
    int error; // of every other call; 0 for none
    bool byteByByte;
};

thread_local const Fault* fault = nullptr; // of the thread's own calls
thread_local unsigned faultyCalls = 0;

/// Result: whether this call is to fail; else its length may have got shorter.
bool Fails(std::size_t& length)
{
    if (fault == nullptr) {
        return false;
    }
    if (fault->error != 0 && ++faultyCalls % 2 == 1) {
        errno = fault->error;
        return true;
    }
    length = fault->byteByByte && length > 1 ? 1 : length;
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

class SerialLayerFault : public live::SerialTransfer, public testing::WithParamInterface<Fault>
{
};

INSTANTIATE_TEST_SUITE_P(Rules, SerialLayerFault, testing::ValuesIn(FAULTS), support::RuleName());

TEST_P(SerialLayerFault, CostsNoByte)
{
    const std::string line = "$GPGGA,101500,3100.0,N,12100.0,E,1*00\r\n";
    Limit({0, 0, 10000, 0, 0}); // [ms] only a failing test waits for it
    device.Write(line + line);

    fault = &GetParam();
    const auto taken = Read(static_cast<DWORD>(2 * line.size()));
    const auto sent = Write(line);
    fault = nullptr;

    EXPECT_EQ(taken, line + line);
    EXPECT_EQ(sent, line.size());
    EXPECT_EQ(device.Read(line.size()), line);
}

} // namespace
