#include "layers/platform/CReadTimer.h"

#include <algorithm>
#include <cstdint>

namespace platform
{

namespace
{

// Longer than a burst's bytes lie apart, and than a receiver of ten fixes a second pauses until its next GGA
// while the reader isn't resting. A read that ended at any line would often have the reader rest just while
// GGA comes in.
constexpr std::uint64_t PAUSE = 60; // [ms]

} // namespace

CReadTimer::CReadTimer(const COMMTIMEOUTS& timeouts, std::size_t length) noexcept
    : interval(timeouts.ReadIntervalTimeout)
{
    const std::uint64_t total =
        timeouts.ReadTotalTimeoutConstant + std::uint64_t{timeouts.ReadTotalTimeoutMultiplier} * length;
    atOnce = interval == MAXDWORD && timeouts.ReadTotalTimeoutConstant == 0 &&
             timeouts.ReadTotalTimeoutMultiplier == 0;
    totalEnd = atOnce ? Clock::now() : DeadlineIn(total);
    BytesCame();
}

void CReadTimer::BytesCame() noexcept
{
    gapEnd = atOnce ? totalEnd : DeadlineIn(interval);
    pauseEnd = DeadlineIn(PAUSE);
}

Clock::time_point CReadTimer::End(HELD held) const noexcept
{
    const Clock::time_point end = EndsByGap(held) ? gapEnd : totalEnd;
    return held == HELD::LINES ? std::min(end, pauseEnd) : end;
}

bool CReadTimer::EndsByGap(HELD held) const noexcept
{
    return held != HELD::NOTHING && gapEnd <= totalEnd && (held != HELD::LINES || gapEnd <= pauseEnd);
}

} // namespace platform
