// KestMath.h: what the library needs of the in-house geodesy library.
#pragma once

#include "GpsLib/contracts/KestApi.h"
#include "GpsLib/records/GPSRecords.h"

/// Metres per degree of longitude, then per degree of latitude, at a position. Both outputs are finite and
/// positive for every input. Throws nothing.
/// Thread: any.
KEST_API void GetUnitLength(const tagLonLat& position, double& metresPerDegreeLon,
                            double& metresPerDegreeLat);

/// Degrees of longitude per metre, then of latitude, at a position: the reciprocals of GetUnitLength. Both
/// outputs are finite and positive for every input. Throws nothing.
/// Thread: any.
KEST_API void GetUnitDegree(const tagLonLat& position, double& degreesLonPerMetre,
                            double& degreesLatPerMetre);
