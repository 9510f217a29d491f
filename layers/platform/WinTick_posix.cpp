#include "GpsLib/contracts/WinTick.h"

#include <cstdint>
#include <ctime>

DWORD GetTickCount()
{
    constexpr std::uint64_t MS_IN_S = 1000;
    constexpr std::uint64_t NS_IN_MS = 1000000;
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    const std::uint64_t ticks =
        static_cast<std::uint64_t>(now.tv_sec) * MS_IN_S + static_cast<std::uint64_t>(now.tv_nsec) / NS_IN_MS;
    return static_cast<DWORD>(ticks); // cut to 32 bits: the count wraps
}
