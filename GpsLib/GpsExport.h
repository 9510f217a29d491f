// GpsExport.h: marks what leaves the shared library; everything else in it is hidden. On Windows Kest_GPS.def
// names it.
#pragma once

#if defined(_WIN32)
#define KEST_GPS_API
#else
#define KEST_GPS_API __attribute__((visibility("default")))
#endif
