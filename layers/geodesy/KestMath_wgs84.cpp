// The geodesy contract on the WGS 84 ellipsoid.
#include "GpsLib/contracts/KestMath.h"

#include <algorithm>
#include <cmath>

#include "GpsLib/math/SinCos.h"

namespace
{

// World Geodetic System 1984: the two defining parameters of its ellipsoid.
constexpr double SEMI_MAJOR_AXIS = 6378137.0; // [m]
constexpr double FLATTENING = 1.0 / 298.257223563;
constexpr double ECCENTRICITY_SQUARED = FLATTENING * (2.0 - FLATTENING);

constexpr double DEGREES_TO_RADIANS = 0.017453292519943295;
constexpr double LATITUDE_MAX = 90.0; // [deg]

/// [rad]; what lies beyond a pole counts as the pole, what is no number as the equator.
double Latitude(const tagLonLat& position) noexcept
{
    if (std::isnan(position.lat)) {
        return 0.0;
    }
    return std::clamp(position.lat, -LATITUDE_MAX, LATITUDE_MAX) * DEGREES_TO_RADIANS;
}

} // namespace

// Radius of curvature in the meridian M = a (1 - e^2) / w^3 and in the prime vertical N = a / w, with
// w = sqrt(1 - e^2 sin^2 B), WGS 84. The cosine of the double nearest to a right angle is above zero, and so
// is a degree of longitude at the poles.
void GetUnitLength(const tagLonLat& position, double& metresPerDegreeLon, double& metresPerDegreeLat)
{
    const double latitude = Latitude(position);
    const auto [sine, cosine] = GPS::QuickSinCosOf(latitude);
    const double w = std::sqrt(1.0 - ECCENTRICITY_SQUARED * (sine * sine));
    const double primeVertical = SEMI_MAJOR_AXIS / w;
    const double meridian = SEMI_MAJOR_AXIS * (1.0 - ECCENTRICITY_SQUARED) / (w * w * w);
    metresPerDegreeLon = primeVertical * cosine * DEGREES_TO_RADIANS;
    metresPerDegreeLat = meridian * DEGREES_TO_RADIANS;
}

void GetUnitDegree(const tagLonLat& position, double& degreesLonPerMetre, double& degreesLatPerMetre)
{
    double metresPerDegreeLon = 0.0;
    double metresPerDegreeLat = 0.0;
    GetUnitLength(position, metresPerDegreeLon, metresPerDegreeLat);
    degreesLonPerMetre = 1.0 / metresPerDegreeLon;
    degreesLatPerMetre = 1.0 / metresPerDegreeLat;
}
