#include "GpsLib/comm/CommPort.h"

#include <new>

#include "GpsLib/comm/SerialCommPort.h"

CommPort::CommPort() noexcept : impl(new (std::nothrow) SerialCommPort), opened(false) {}

CommPort::~CommPort()
{
    delete impl;
}

bool CommPort::Open(std::uint32_t portNumber, std::uint32_t baudRate, std::uint32_t parity,
                    std::uint32_t byteSize, std::uint32_t stopBits)
{
    if (opened) {
        return true;
    }
    const bool done = impl != nullptr && impl->Open(portNumber, baudRate, parity, byteSize, stopBits);
    opened = done;
    return done;
}

bool CommPort::Close()
{
    if (!opened) {
        return true;
    }
    if (!impl->Close()) {
        return false;
    }
    opened = false;
    return true;
}

bool CommPort::Read(char* buffer, std::uint32_t length, std::uint32_t* count)
{
    return impl != nullptr && impl->Read(buffer, length, count);
}

bool CommPort::Write(const char* buffer, std::uint32_t length, std::uint32_t* count)
{
    return impl != nullptr && impl->Write(buffer, length, count);
}

bool CommPort::IsOpen() const noexcept
{
    return opened;
}
