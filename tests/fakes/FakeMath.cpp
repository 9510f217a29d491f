#include "tests/fakes/FakeMath.h"

#include "GpsLib/contracts/KestMath.h"

void GetUnitLength(const tagLonLat& position, double& metresPerDegreeLon, double& metresPerDegreeLat)
{
    FakeMath::askedFor = position;
    metresPerDegreeLon = FakeMath::lon;
    metresPerDegreeLat = FakeMath::lat;
}

void GetUnitDegree(const tagLonLat& position, double& degreesLonPerMetre, double& degreesLatPerMetre)
{
    FakeMath::askedFor = position;
    degreesLonPerMetre = 1.0 / FakeMath::lon;
    degreesLatPerMetre = 1.0 / FakeMath::lat;
}
