// Units.h: metres on the ground, degrees of the compass.
#pragma once

#include <cmath>

#include "GpsLib/contracts/KestMath.h"
#include "GpsLib/filter/velocity/EastNorth.h"
#include "GpsLib/math/AngleOf.h"
#include "GpsLib/math/SinCos.h"
#include "GpsLib/records/GPSRecords.h"

namespace study
{

constexpr double DEGREE = 0.017453292519943295; // [rad]
constexpr double KMH = 1.0 / 3.6;               // [m/s]

/// A way on the ground [m].
using Metres = GPS::EastNorth;

inline double Length(Metres way) noexcept
{
    return std::sqrt(Square(way));
}

/// Ways of some kilometres.
inline Metres Way(const tagLonLat& from, const tagLonLat& to)
{
    double lonUnit = 0.0;
    double latUnit = 0.0;
    GetUnitLength(from, lonUnit, latUnit);
    return {(to.lon - from.lon) * lonUnit, (to.lat - from.lat) * latUnit};
}

inline tagLonLat Moved(const tagLonLat& from, Metres way)
{
    double lonUnit = 0.0;
    double latUnit = 0.0;
    GetUnitDegree(from, lonUnit, latUnit);
    return {from.lon + way.east * lonUnit, from.lat + way.north * latUnit};
}

/// Result: one metre along a heading [deg].
inline Metres Towards(double heading) noexcept
{
    const GPS::SinCos parts = GPS::QuickSinCosOf(heading * DEGREE);
    return {parts.sine, parts.cosine};
}

/// Result: [deg] 0 to below 360.
inline double HeadingOf(Metres way)
{
    const double heading = GPS::AngleOf(way.east, way.north) / DEGREE;
    return heading < 0.0 ? heading + 360.0 : heading;
}

/// Result: [deg] -180 to 180.
inline double Apart(double heading, double from) noexcept
{
    return std::remainder(heading - from, 360.0);
}

} // namespace study
