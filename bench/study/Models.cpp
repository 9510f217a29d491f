#include "bench/study/Models.h"

#include "GpsLib/filter/SmoothFix.h"

namespace study
{

Smoothers::Smoothers() : acceleration(GPS::CGPSFilter::Make()) {}

OfModels<_GPS_Data> Smoothers::Step(const _GPS_Data& fix)
{
    OfModels<_GPS_Data> all{fix, fix, fix};
    GPS::SmoothFix(*acceleration, all[ACCELERATION]);
    velocity.Filter(all[VELOCITY]);
    return all;
}

} // namespace study
