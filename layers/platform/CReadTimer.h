// CReadTimer.h: when a read ends by time.
#pragma once

#include <cstddef>

#include "GpsLib/contracts/WinSerial.h"
#include "layers/platform/Deadline.h"

namespace platform
{

/// The deadlines of one read: its total time, and the gap between two bytes.
class CReadTimer
{
public:
    /// Begins the total time, and the gap too, for bytes that the read holds from the start.
    /// length: bytes that the read waits for.
    CReadTimer(const COMMTIMEOUTS& timeouts, std::size_t length) noexcept;

    /// Begins the gap anew.
    void BytesCame() noexcept;

    /// holding: whether the read holds bytes; without any there is no gap.
    Clock::time_point End(bool holding) const noexcept;

    /// Result: whether that end is the gap's.
    bool EndsByGap(bool holding) const noexcept;

private:
    DWORD interval; // [ms], 0 means none
    bool atOnce;    // ends with what is there: both deadlines are the beginning
    Clock::time_point totalEnd;
    Clock::time_point gapEnd;
};

} // namespace platform
