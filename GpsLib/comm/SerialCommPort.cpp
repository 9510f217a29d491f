#include "GpsLib/comm/SerialCommPort.h"

#include <cstring>
#include <cwchar>

namespace
{

constexpr std::size_t NAME_SIZE = 6; // "COMn:" and its terminator

constexpr DWORD READ_GAP = 100;      // [ms]
constexpr DWORD READ_PER_BYTE = 1;   // [ms]
constexpr DWORD READ_CONSTANT = 100; // [ms]

/// The platform's word of 32 bits has another name on Windows than here.
LPDWORD AsPlatformCount(std::uint32_t* count) noexcept
{
    static_assert(sizeof(DWORD) == sizeof *count);
    return reinterpret_cast<LPDWORD>(count);
}

} // namespace

SerialCommPort::SerialCommPort() noexcept : handle(INVALID_HANDLE_VALUE) {}

SerialCommPort::~SerialCommPort() = default;

bool SerialCommPort::Open(std::uint32_t portNumber, std::uint32_t baudRate, std::uint32_t parity,
                          std::uint32_t byteSize, std::uint32_t stopBits)
{
    wchar_t name[NAME_SIZE];
    const int length = std::swprintf(name, NAME_SIZE, L"COM%d:", static_cast<int>(portNumber));
    // A number of two digits doesn't fit; the standard tells it by a negative length, some platforms don't.
    if (length < 0 || length >= static_cast<int>(NAME_SIZE)) {
        return false;
    }
    handle = CreateFileW(name, GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return false;
    }
    SetCommMask(handle, EV_RXCHAR);
    SetupComm(handle, QUEUE_SIZE, QUEUE_SIZE);
    if (!ApplySettings(baudRate, parity, byteSize, stopBits) || !ApplyTimeouts()) {
        Close();
        return false;
    }
    EscapeCommFunction(handle, SETDTR);
    EscapeCommFunction(handle, SETRTS);
    PurgeComm(handle, PURGE_TXABORT | PURGE_RXABORT | PURGE_TXCLEAR | PURGE_RXCLEAR);
    return true;
}

bool SerialCommPort::ApplySettings(std::uint32_t baudRate, std::uint32_t parity, std::uint32_t byteSize,
                                   std::uint32_t stopBits)
{
    DCB settings{};
    settings.DCBlength = sizeof settings;
    GetCommState(handle, &settings);
    settings.fBinary = 1;
    settings.fParity = 1; // whatever the parity is
    settings.fOutxCtsFlow = 0;
    settings.fOutxDsrFlow = 0;
    settings.fDtrControl = DTR_CONTROL_ENABLE;
    settings.fDsrSensitivity = 0;
    settings.fTXContinueOnXoff = 1;
    settings.fOutX = 0;
    settings.fInX = 0;
    settings.fErrorChar = 0;
    settings.fNull = 0;
    settings.fRtsControl = RTS_CONTROL_ENABLE;
    settings.fAbortOnError = 0; // an error must not stop later transfers
    settings.BaudRate = baudRate;
    settings.ByteSize = static_cast<BYTE>(byteSize); // cut to 8 bits, as the fields are
    settings.Parity = static_cast<BYTE>(parity);
    settings.StopBits = static_cast<BYTE>(stopBits);
    return SetCommState(handle, &settings) != 0;
}

bool SerialCommPort::ApplyTimeouts()
{
    COMMTIMEOUTS timeouts{};
    GetCommTimeouts(handle, &timeouts);
    timeouts.ReadIntervalTimeout = READ_GAP;
    timeouts.ReadTotalTimeoutMultiplier = READ_PER_BYTE;
    timeouts.ReadTotalTimeoutConstant = READ_CONSTANT;
    timeouts.WriteTotalTimeoutMultiplier = 0;
    timeouts.WriteTotalTimeoutConstant = 0;
    return SetCommTimeouts(handle, &timeouts) != 0;
}

bool SerialCommPort::Close()
{
    if (handle == INVALID_HANDLE_VALUE) {
        return true;
    }
    SetCommMask(handle, 0);
    PurgeComm(handle, PURGE_TXCLEAR | PURGE_RXCLEAR);
    CloseHandle(handle);
    handle = INVALID_HANDLE_VALUE;
    return true;
}

bool SerialCommPort::Read(char* buffer, std::uint32_t length, std::uint32_t* count)
{
    ClearError();
    std::memset(buffer, 0, length);
    const bool done = ReadFile(handle, buffer, length, AsPlatformCount(count), nullptr) != 0;
    if (!done) {
        ClearError();
    }
    return done;
}

bool SerialCommPort::Write(const char* buffer, std::uint32_t length, std::uint32_t* count)
{
    ClearError();
    const bool done = WriteFile(handle, buffer, length, AsPlatformCount(count), nullptr) != 0;
    if (!done) {
        ClearError();
    }
    return done;
}

void SerialCommPort::ClearError()
{
    DWORD errors = 0;
    COMSTAT state{};
    ClearCommError(handle, &errors, &state);
}
