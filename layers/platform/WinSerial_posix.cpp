// The platform's serial services on the kernel's terminals: which port, which call.
#include "GpsLib/contracts/WinSerial.h"

#include <cwchar>
#include <memory>
#include <new>
#include <utility>

#include <sys/ioctl.h>

#include "layers/platform/CSerialHandles.h"
#include "layers/platform/CSerialLine.h"
#include "layers/platform/PortAssignment.h"
#include "layers/platform/PortMap.h"

using platform::CSerialHandles;
using platform::CSerialLine;

namespace
{

// Never destroyed, since a reader may still be in it when the process ends; made in place, since it must not
// fail.
CSerialHandles& Handles()
{
    alignas(CSerialHandles) static unsigned char room[sizeof(CSerialHandles)];
    static auto* const handles = new (room) CSerialHandles;
    return *handles;
}

class PortUse : public CSerialHandles::Use
{
public:
    explicit PortUse(HANDLE port) : Use(Handles(), port) {}
};

// Result: the n of "COMn:", 0 for any other name.
std::uint32_t PortNumber(const wchar_t* name)
{
    constexpr std::size_t DIGIT = 3; // behind "COM"
    if (name == nullptr || std::wcsncmp(name, L"COM", DIGIT) != 0 || name[DIGIT] < L'1' ||
        name[DIGIT] > L'9' || std::wcscmp(name + DIGIT + 1, L":") != 0) {
        return 0;
    }
    return static_cast<std::uint32_t>(name[DIGIT] - L'0');
}

} // namespace

HANDLE CreateFileW(LPCWSTR name, DWORD, DWORD share, LPSECURITY_ATTRIBUTES, DWORD disposition, DWORD flags,
                   HANDLE)
{
    if (share != 0 || disposition != OPEN_EXISTING || flags != 0) {
        return INVALID_HANDLE_VALUE; // a port is never shared, never made, and its transfers aren't
                                     // overlapped
    }
    try {
        auto line = std::make_unique<CSerialLine>(platform::AssignmentOf(PortNumber(name)));
        if (!line->Open()) {
            return INVALID_HANDLE_VALUE;
        }
        return Handles().Add(std::move(line));
    } catch (...) { // memory is short
        return INVALID_HANDLE_VALUE;
    }
}

// Events are not reported: nobody here waits for any.
BOOL SetCommMask(HANDLE port, DWORD)
{
    const PortUse use(port);
    return static_cast<bool>(use);
}

// The kernel's queues are longer than what is recommended here, and have that length for good.
BOOL SetupComm(HANDLE port, DWORD, DWORD)
{
    const PortUse use(port);
    return static_cast<bool>(use);
}

BOOL GetCommState(HANDLE port, LPDCB settings)
{
    const PortUse use(port);
    return use && use->GetState(*settings);
}

BOOL SetCommState(HANDLE port, LPDCB settings)
{
    const PortUse use(port);
    return use && use->SetState(*settings);
}

BOOL GetCommTimeouts(HANDLE port, LPCOMMTIMEOUTS timeouts)
{
    const PortUse use(port);
    if (!use) {
        return 0;
    }
    *timeouts = use->GetTimeouts();
    return 1;
}

BOOL SetCommTimeouts(HANDLE port, LPCOMMTIMEOUTS timeouts)
{
    const PortUse use(port);
    if (!use) {
        return 0;
    }
    use->SetTimeouts(*timeouts);
    return 1;
}

BOOL EscapeCommFunction(HANDLE port, DWORD function)
{
    const PortUse use(port);
    if (!use) {
        return 0;
    }
    switch (function) {
    case SETDTR:
        return use->RaiseLine(TIOCM_DTR, true);
    case CLRDTR:
        return use->RaiseLine(TIOCM_DTR, false);
    case SETRTS:
        return use->RaiseLine(TIOCM_RTS, true);
    case CLRRTS:
        return use->RaiseLine(TIOCM_RTS, false);
    default:
        return 0;
    }
}

BOOL PurgeComm(HANDLE port, DWORD queues)
{
    const PortUse use(port);
    return use && use->Purge(queues);
}

BOOL ClearCommError(HANDLE port, LPDWORD errors, LPCOMSTAT state)
{
    const PortUse use(port);
    COMSTAT queues{};
    if (!use || !use->GetQueues(queues)) {
        return 0;
    }
    if (errors != nullptr) {
        *errors = 0; // an error stops no later transfer here, so there is none to clear
    }
    if (state != nullptr) {
        *state = queues;
    }
    return 1;
}

BOOL ReadFile(HANDLE port, LPVOID buffer, DWORD length, LPDWORD count, LPOVERLAPPED)
{
    *count = 0;
    const PortUse use(port);
    return use && use->Read(static_cast<char*>(buffer), length, *count);
}

BOOL WriteFile(HANDLE port, LPCVOID buffer, DWORD length, LPDWORD count, LPOVERLAPPED)
{
    *count = 0;
    const PortUse use(port);
    return use && use->Write(static_cast<const char*>(buffer), length, *count);
}

BOOL CloseHandle(HANDLE port)
{
    return Handles().Close(port);
}

bool platform::PortCounts(std::uint32_t portNumber, adapter::AdapterCounts& counts) noexcept
{
    const PortUse use(Handles().HandleOf(portNumber));
    return use && use->GetCounts(counts);
}
