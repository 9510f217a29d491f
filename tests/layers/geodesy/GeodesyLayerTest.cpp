// Our geodesy layer against an independent library.
#include "GpsLib/contracts/KestMath.h"

#include <limits>

#include <GeographicLib/Ellipsoid.hpp>
#include <gtest/gtest.h>

namespace
{

constexpr double DEGREE = 0.017453292519943295; // [rad]

struct Units {
    explicit Units(double lat) { GetUnitLength({121.0, lat}, lon, this->lat); }
    double lon = 0.0;
    double lat = 0.0;
};

TEST(GeodesyLayer, UnitsAreArcsOfTheWgs84Ellipsoid)
{
    const GeographicLib::Ellipsoid& wgs84 = GeographicLib::Ellipsoid::WGS84();
    for (int tenths = -899; tenths <= 899; ++tenths) {
        const double lat = tenths / 10.0;
        const Units units(lat);
        const double circle = wgs84.CircleRadius(lat) * DEGREE;
        const double meridian = wgs84.MeridionalCurvatureRadius(lat) * DEGREE;
        EXPECT_NEAR(units.lon / circle, 1.0, 1e-9) << lat; // far above both libraries' rounding
        EXPECT_NEAR(units.lat / meridian, 1.0, 1e-9) << lat;
    }
}

TEST(GeodesyLayer, BeyondAPoleIsThePoleAndNoNumberTheEquator)
{
    for (const double beyond : {90.1, 1e300, std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(Units(beyond).lon, Units(90.0).lon);
        EXPECT_EQ(Units(-beyond).lat, Units(-90.0).lat);
    }
    EXPECT_EQ(Units(std::numeric_limits<double>::quiet_NaN()).lon, Units(0.0).lon);
}

} // namespace
