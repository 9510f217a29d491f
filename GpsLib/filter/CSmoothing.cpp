#include "GpsLib/filter/CSmoothing.h"

#include "GpsLib/filter/SmoothFix.h"

namespace GPS
{

CSmoothing::CSmoothing() noexcept
    : on(false),
      chosen(FILTERMODEL_ACCELERATION),
      atWork(FILTERMODEL_ACCELERATION),
      acceleration(CGPSFilter::Make())
{
}

void CSmoothing::SetModel(FILTERMODEL model) noexcept
{
    if (model == FILTERMODEL_ACCELERATION || model == FILTERMODEL_VELOCITY) {
        chosen = model;
    }
}

void CSmoothing::Smooth(_GPS_Data& fix) noexcept
{
    if (!on) {
        return;
    }
    const FILTERMODEL model = chosen;
    if (model != atWork) {
        BeginModel(model);
    }
    if (model == FILTERMODEL_VELOCITY) {
        velocity.Filter(fix);
    } else if (acceleration != nullptr) {
        SmoothFix(*acceleration, fix);
    }
}

void CSmoothing::BeginModel(FILTERMODEL model) noexcept
{
    atWork = model;
    if (model == FILTERMODEL_VELOCITY) {
        velocity = CVelocityFilter();
    } else if (acceleration != nullptr) {
        _GPS_Filter_Data gap{}; // not valid, so that the next fix is a seed
        acceleration->Filter(gap);
    }
}

} // namespace GPS
