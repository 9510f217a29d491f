#include "GpsLib/filter/SmoothFix.h"

#include "GpsLib/contracts/KestMath.h"
#include "GpsLib/filter/CGPSFilter.h"

namespace GPS
{

void SmoothFix(CGPSFilter& filter, _GPS_Data& fix) noexcept
{
    _GPS_Filter_Data data{};
    data.lonLat = fix.lonLat;
    data.speed = fix.speed;
    data.heading = fix.heading;
    GetUnitDegree(fix.lonLat, data.unitDegreeLon, data.unitDegreeLat);
    data.valid = fix.valid != 0;
    filter.Filter(data);
    fix.lonLat = data.lonLat;
    fix.speed = data.speed;
    fix.heading = data.heading;
}

} // namespace GPS
