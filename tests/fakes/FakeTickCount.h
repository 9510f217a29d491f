// FakeTickCount.h: a tick count that stands where the test puts it.
#pragma once

#include <cstdint>

class FakeTickCount
{
public:
    static void Reset() noexcept { ticks = 0; }
    static void Set(std::uint32_t milliseconds) noexcept { ticks = milliseconds; }

    static inline std::uint32_t ticks = 0; // [ms]
};
