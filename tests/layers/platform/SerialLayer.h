// SerialLayer.h: a port of the serial layer with a pseudo-terminal behind it.
#pragma once

#include <future>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "GpsLib/contracts/KestThread.h"
#include "GpsLib/contracts/WinSerial.h"
#include "layers/platform/PortMap.h"
#include "tests/support/PseudoTerminal.h"

namespace live
{

inline HANDLE OpenNamed(const wchar_t* name)
{
    return CreateFileW(name, GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
}

/// The device is that of COM7.
class SerialLayer : public testing::Test
{
protected:
    SerialLayer() { platform::AssignPort(7, device.Path()); }
    ~SerialLayer() override { platform::AssignPort(7, ""); }

    support::PseudoTerminal device;
};

struct Exchange {
    const char* sent;
    DWORD asked;
    const char* read;
};

/// The port is open. What a transfer gives is none when it fails.
class SerialTransfer : public SerialLayer
{
protected:
    SerialTransfer() : port(OpenNamed(L"COM7:")) {}
    ~SerialTransfer() override { CloseHandle(port); }

    void Limit(COMMTIMEOUTS timeouts) { ASSERT_TRUE(SetCommTimeouts(port, &timeouts)); }

    std::optional<std::string> Read(DWORD length = 512)
    {
        std::string bytes(length, '\0');
        DWORD count = 9;
        const BOOL done = ReadFile(port, bytes.data(), length, &count, nullptr);
        EXPECT_TRUE(done || count == 0);
        return done ? std::optional(bytes.substr(0, count)) : std::nullopt;
    }

    std::future<std::optional<std::string>> ReadElsewhere(DWORD length = 512)
    {
        return std::async(std::launch::async, [this, length] { return Read(length); });
    }

    std::optional<DWORD> Write(const std::string& bytes)
    {
        DWORD count = 0;
        const BOOL done = WriteFile(port, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr);
        return done ? std::optional(count) : std::nullopt;
    }

    DWORD Waiting()
    {
        COMSTAT state{};
        DWORD errors = 1;
        EXPECT_TRUE(ClearCommError(port, &errors, &state));
        return state.cbInQue;
    }

    // The kernel hands bytes over in its own time.
    void SendAndAwait(const std::string& bytes)
    {
        const std::size_t all = Waiting() + bytes.size();
        device.Write(bytes);
        while (Waiting() < all) {
            KestThread::Thread::sleep(1);
        }
    }

    void ExpectExchanges(const std::vector<Exchange>& exchanges)
    {
        for (const Exchange& exchange : exchanges) {
            SendAndAwait(exchange.sent);
            EXPECT_EQ(Read(exchange.asked), exchange.read);
        }
    }

    HANDLE port;
};

} // namespace live
