#include "layers/platform/CReadTimer.h"

#include <cstdint>

namespace platform
{

CReadTimer::CReadTimer(const COMMTIMEOUTS& timeouts, std::size_t length) noexcept
    : interval(timeouts.ReadIntervalTimeout), gapEnd(NEVER)
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
}

Clock::time_point CReadTimer::End(bool holding) const noexcept
{
    return EndsByGap(holding) ? gapEnd : totalEnd;
}

bool CReadTimer::EndsByGap(bool holding) const noexcept
{
    return holding && gapEnd <= totalEnd;
}

} // namespace platform
