#include "tests/fakes/FakeSerialCalls.h"

#include <algorithm>
#include <cstring>
#include <sstream>

#include <gtest/gtest.h>

#include "tests/fakes/FakeThread.h"

namespace
{

using Port = FakeSerialCalls;

const HANDLE THE_PORT = nullptr;

/// Notes a call. Result: whether it is to go well.
template <class... ARGUMENTS>
bool Note(const char* call, const ARGUMENTS&... arguments)
{
    std::ostringstream line;
    line << call << std::hex << std::showbase;
    ((line << ' ' << arguments), ...);
    Port::journal.push_back(line.str());
    return Port::failing.count(call) == 0;
}

/// Notes a call on a handle. Result: 1 when it is to go well, else 0.
template <class... ARGUMENTS>
BOOL On(HANDLE handle, const char* call, const ARGUMENTS&... arguments)
{
    const bool good = Note(call, arguments...);
    if (handle == THE_PORT && Port::open) {
        return good ? 1 : 0;
    }
    Port::journal.back() += " on no port";
    return 0;
}

DWORD TakeBytes(std::string& bytes, void* buffer, DWORD length)
{
    const std::size_t count = std::min<std::size_t>(bytes.size(), length);
    std::memcpy(buffer, bytes.data(), count);
    bytes.erase(0, count);
    return static_cast<DWORD>(count);
}

} // namespace

void FakeSerialCalls::Reset()
{
    open = false;
    script.clear();
    failing.clear();
    journal.clear();
    settings = {};
    timeouts = {};
    written.clear();
}

HANDLE CreateFileW(LPCWSTR name, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security, DWORD disposition,
                   DWORD flags, HANDLE pattern)
{
    EXPECT_TRUE(security == nullptr && pattern == nullptr);
    std::string narrow;
    for (; *name != L'\0'; ++name) {
        narrow += static_cast<char>(*name); // ASCII alone
    }
    if (!Note("CreateFileW", narrow, access, share, disposition, flags) || Port::open) {
        return INVALID_HANDLE_VALUE;
    }
    Port::open = true;
    return THE_PORT;
}

BOOL SetCommMask(HANDLE port, DWORD events)
{
    return On(port, "SetCommMask", events);
}

BOOL SetupComm(HANDLE port, DWORD inputQueue, DWORD outputQueue)
{
    return On(port, "SetupComm", inputQueue, outputQueue);
}

BOOL GetCommState(HANDLE port, LPDCB settings)
{
    const BOOL done = On(port, "GetCommState");
    *settings = done != 0 ? Port::settings : *settings;
    return done;
}

BOOL SetCommState(HANDLE port, LPDCB settings)
{
    Port::settings = *settings;
    return On(port, "SetCommState");
}

BOOL GetCommTimeouts(HANDLE port, LPCOMMTIMEOUTS timeouts)
{
    const BOOL done = On(port, "GetCommTimeouts");
    *timeouts = done != 0 ? Port::timeouts : *timeouts;
    return done;
}

BOOL SetCommTimeouts(HANDLE port, LPCOMMTIMEOUTS timeouts)
{
    Port::timeouts = *timeouts;
    return On(port, "SetCommTimeouts");
}

BOOL EscapeCommFunction(HANDLE port, DWORD function)
{
    return On(port, "EscapeCommFunction", function);
}

BOOL PurgeComm(HANDLE port, DWORD queues)
{
    return On(port, "PurgeComm", queues);
}

BOOL ClearCommError(HANDLE port, LPDWORD errors, LPCOMSTAT state)
{
    *errors = 0;
    *state = {};
    return On(port, "ClearCommError");
}

BOOL ReadFile(HANDLE port, LPVOID buffer, DWORD length, LPDWORD count, LPOVERLAPPED overlapped)
{
    EXPECT_EQ(overlapped, nullptr);
    const char* const bytes = static_cast<const char*>(buffer);
    const bool zeroed = std::all_of(bytes, bytes + length, [](char byte) { return byte == 0; });
    *count = 0;
    if (On(port, "ReadFile", length, zeroed ? "zeroed" : "dirty") == 0) {
        return 0;
    }
    while (Port::open && Port::script.empty() && FakeThread::Pause()) {
    }
    if (!Port::open || Port::script.empty()) {
        return Port::open ? 1 : 0;
    }
    Port::Step& step = Port::script.front();
    *count = TakeBytes(step.bytes, buffer, length);
    const BOOL done = step.fails ? 0 : 1;
    if (step.bytes.empty()) {
        Port::script.pop_front();
    }
    return done;
}

BOOL WriteFile(HANDLE port, LPCVOID buffer, DWORD length, LPDWORD count, LPOVERLAPPED overlapped)
{
    EXPECT_EQ(overlapped, nullptr);
    const BOOL done = On(port, "WriteFile", length);
    *count = done != 0 ? length : 0;
    Port::written.append(static_cast<const char*>(buffer), *count);
    return done;
}

BOOL CloseHandle(HANDLE port)
{
    const BOOL done = On(port, "CloseHandle");
    Port::open = Port::open && done == 0;
    return done;
}
