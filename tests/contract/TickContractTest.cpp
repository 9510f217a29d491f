// What the library relies on in the tick count.
#include "GpsLib/contracts/WinTick.h"

#include <cstdint>

#include <gtest/gtest.h>

namespace
{

TEST(TickContract, CountNeverStepsBack)
{
    DWORD before = GetTickCount();
    for (int i = 0; i < 100000; ++i) {
        const DWORD now = GetTickCount();
        ASSERT_GE(static_cast<std::int32_t>(now - before), 0); // holds over a wrap too
        before = now;
    }
}

} // namespace
