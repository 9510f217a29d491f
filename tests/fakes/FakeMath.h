// FakeMath.h: a flat Earth with round units.
#pragma once

#include "GpsLib/records/GPSRecords.h"

class FakeMath
{
public:
    static void Reset() noexcept
    {
        Set(100000.0, 100000.0);
        askedFor = {};
    }

    /// Units everywhere from now on, both above zero. [m] per degree
    static void Set(double metresPerDegreeLon, double metresPerDegreeLat) noexcept
    {
        lon = metresPerDegreeLon;
        lat = metresPerDegreeLat;
    }

    static inline double lon = 100000.0; // [m] per degree
    static inline double lat = 100000.0; // [m] per degree
    static inline tagLonLat askedFor{};  // the position of the latest call
};
