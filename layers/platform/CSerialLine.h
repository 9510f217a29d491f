// CSerialLine.h: one open serial port: its transfers, and its device's going and coming back.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>

#include "GpsLib/contracts/WinSerial.h"
#include "layers/adapter/CSentenceAdapter.h"
#include "layers/platform/CReadTimer.h"
#include "layers/platform/CReceivedBytes.h"
#include "layers/platform/CTty.h"
#include "layers/platform/Deadline.h"
#include "layers/platform/PortAssignment.h"

namespace platform
{

/// A serial port that someone has open. Its device may go and come back, which Read sees to; in between all
/// but the time-outs fails. Nothing allocates after the construction, but a tap may.
///
/// Thread: any, for all but Open and the destructor; reads wait for each other, and so do writes.
class CSerialLine
{
public:
    /// As long as the kernel's own queue of a terminal. A read of more is served as one of this length.
    static constexpr std::size_t READ_MAX = 4096; // [byte]

    /// Throws std::bad_alloc.
    explicit CSerialLine(std::shared_ptr<const PortAssignment> assignment);
    /// Closes the port. Nobody may be in an operation any more.
    ~CSerialLine();
    CSerialLine(const CSerialLine&) = delete;
    CSerialLine& operator=(const CSerialLine&) = delete;

    /// Opens the device for exclusive use, with the speed and frame that it has. Called once.
    bool Open() noexcept;

    /// Makes every Read and Write that waits, and every later one that would, return false.
    void Interrupt() noexcept;

    std::uint32_t PortNumber() const noexcept { return assignment->portNumber; }

    /// Reads as ReadFile does and the port's options say, READ_MAX at most. Tries to open a device that has
    /// gone every 100 ms, and goes on with it as soon as it is back. count: set to the bytes delivered, 0 on
    /// false. Result: false after Interrupt, or when the device was gone at the end of the time-outs and
    /// nothing is left of it.
    bool Read(char* buffer, std::size_t length, DWORD& count) noexcept;

    /// Writes until all is with the driver or the time-out has run out.
    /// count: set to the bytes written.
    /// Result: false after Interrupt, or when the device has gone.
    bool Write(const char* data, std::size_t length, DWORD& count) noexcept;

    /// settings: speed and frame as the device has them, flags as they were set.
    bool GetState(DCB& settings) noexcept;
    /// Result: false for what the device won't have; nothing has then changed.
    bool SetState(const DCB& settings) noexcept;
    COMMTIMEOUTS GetTimeouts() noexcept;
    /// A read or write that runs keeps the old ones.
    void SetTimeouts(const COMMTIMEOUTS& timeouts) noexcept;

    /// line: TIOCM_DTR or TIOCM_RTS; kept for a device that comes back.
    /// Result: false when the device has no such line.
    bool RaiseLine(int line, bool raise) noexcept;

    /// Empties the queues of PURGE_RXCLEAR and PURGE_TXCLEAR. The aborts have nothing to do, since no
    /// transfer runs behind its caller's back; a read that waits goes on with what comes from now on.
    bool Purge(DWORD queues) noexcept;

    /// Fills in the lengths of both queues.
    bool GetQueues(COMSTAT& state) noexcept;

    /// Result: false without an adapter; nothing has then changed.
    bool GetCounts(adapter::AdapterCounts& counts) noexcept;

private:
    enum class EVENT {
        INTERRUPTED,
        DEVICE, // has something to take in, or is due for a try
        NOTHING // by the deadline, or earlier
    };

    EVENT Await(Clock::time_point deadline) const noexcept;
    void CatchUp() noexcept;
    bool TakeAll(std::size_t room) noexcept;
    std::size_t TakeIn(std::size_t room) noexcept;
    void Keep(const char* bytes, std::size_t length) noexcept;
    std::size_t RoomFor(std::size_t room) const noexcept;
    HELD Held(std::size_t room) noexcept;
    void DropTornLine() noexcept;
    void Reopen() noexcept;
    void LoseDevice() noexcept;
    bool RestInterrupted(Clock::time_point until) const noexcept;
    bool ApplyLines() const noexcept;

    const std::shared_ptr<const PortAssignment> assignment; // its path is opened again after the device went
    const bool keepsMuch; // any option is on: takes in more than a read asks for
    int interruption;     // owned eventfd, readable from Interrupt on for good

    std::mutex writeTurn;        // held through a Write and its waits
    std::mutex readTurn;         // held through a Read and its waits
    Clock::time_point restUntil; // under readTurn; the device isn't looked at before

    std::mutex lock; // taken after a turn, never held in a wait; guards the rest
    CTty tty;        // changed under readTurn as well, so the reader may wait on it without the lock
    DCB settings;
    COMMTIMEOUTS timeouts;
    int raisedLines; // TIOCM_ bits
    CReceivedBytes received;
    const std::unique_ptr<adapter::CSentenceAdapter> adapter; // owned; null unless asked for
};

} // namespace platform
