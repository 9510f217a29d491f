// CReadTimer.h: when a read ends by time.
#pragma once

#include <cstddef>

#include "GpsLib/contracts/WinSerial.h"
#include "layers/platform/Deadline.h"

namespace platform
{

/// What a read holds so far.
enum class HELD {
    NOTHING,
    BYTES,
    LINES, // whole ones, for which a prompt read waits less
    ENOUGH // to end at once
};

/// The deadlines of one read: its total time, the gap between two bytes, and a shorter one behind whole
/// lines.
class CReadTimer
{
public:
    /// Begins the total time, and the gap too, for bytes that the read holds from the start.
    /// length: bytes that the read waits for.
    CReadTimer(const COMMTIMEOUTS& timeouts, std::size_t length) noexcept;

    /// Begins the gaps anew.
    void BytesCame() noexcept;

    /// held: without any bytes there is no gap.
    Clock::time_point End(HELD held) const noexcept;

    /// Result: whether that end is the gap's, behind which a torn line goes out too.
    bool EndsByGap(HELD held) const noexcept;

private:
    DWORD interval; // [ms], 0 means none
    bool atOnce;    // ends with what is there: both deadlines are the beginning
    Clock::time_point totalEnd;
    Clock::time_point gapEnd;
    Clock::time_point pauseEnd; // of the gap behind whole lines
};

} // namespace platform
