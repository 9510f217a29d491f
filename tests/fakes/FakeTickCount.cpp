#include "tests/fakes/FakeTickCount.h"

#include "GpsLib/contracts/WinTick.h"

DWORD GetTickCount()
{
    return FakeTickCount::ticks;
}
