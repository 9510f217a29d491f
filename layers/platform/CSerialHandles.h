// CSerialHandles.h: which open port a handle stands for, and who is using it.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>

#include "GpsLib/contracts/WinSerial.h"
#include "layers/platform/CSerialLine.h"

namespace platform
{

/// The table of open ports. A handle is a number that is given out once, so a stale one never meets a later
/// port.
///
/// Thread: any.
class CSerialHandles
{
    struct Entry {
        std::unique_ptr<CSerialLine> line;
        int users = 0;
        bool closing = false;
    };

public:
    /// One call's stay in a port, which can't be closed meanwhile.
    class Use
    {
    public:
        /// Result: tests as false when the handle isn't open.
        Use(CSerialHandles& handles, HANDLE handle) noexcept;
        ~Use();
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;

        explicit operator bool() const noexcept { return entry != nullptr; }
        CSerialLine* operator->() const noexcept { return entry->line.get(); }

    private:
        CSerialHandles& handles;
        Entry* entry; // borrowed; stays until its users have left
    };

    /// line: owned from here on, also on failure.
    /// Result: INVALID_HANDLE_VALUE when all numbers are used up.
    /// Throws std::bad_alloc.
    HANDLE Add(std::unique_ptr<CSerialLine> line);

    /// Result: the handle of "COMn:", INVALID_HANDLE_VALUE when it isn't open; of two that were opened by
    /// that number, one assigned anew in between, the later one.
    HANDLE HandleOf(std::uint32_t portNumber) noexcept;

    /// Interrupts the port's users, waits until they have left, and closes it.
    /// Result: false when the handle isn't open, or another thread is closing it.
    bool Close(HANDLE handle) noexcept;

private:
    std::mutex lock;
    std::condition_variable lastLeft;      // bound to lock
    std::map<std::uintptr_t, Entry> lines; // under lock
    std::uintptr_t lastNumber = 0;         // under lock
};

} // namespace platform
