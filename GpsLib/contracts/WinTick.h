// WinTick.h: the platform's tick count.
#pragma once

#include "GpsLib/contracts/KestApi.h"
#include "GpsLib/contracts/WinTypes.h"

#if !defined(_WIN32)
/// [ms] since system start, from a clock that is never set; wraps after 49.7 days.
/// Thread: any.
extern "C" KEST_API DWORD GetTickCount();
#endif
