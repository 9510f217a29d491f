// LOGTYPE.h: formats of a log file.
#pragma once

#include <cstdint>

/// Any value can be stored; with any but LOGTYPE_NMEA nothing is written.
enum LOGTYPE : std::int32_t {
    LOGTYPE_NMEA = 0, ///< raw sentences, each ended by CR LF
};
