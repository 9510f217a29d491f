// Models.h: the two ways of smoothing, beside none.
#pragma once

#include <array>
#include <memory>

#include "GpsLib/filter/CGPSFilter.h"
#include "GpsLib/filter/velocity/CVelocityFilter.h"
#include "GpsLib/records/GPSRecords.h"

namespace study
{

enum MODEL { RAW, ACCELERATION, VELOCITY, MODELS };

/// A value of each.
template <class VALUE>
using OfModels = std::array<VALUE, MODELS>;

class Smoothers
{
public:
    Smoothers();

    /// Result: what becomes of an epoch.
    OfModels<_GPS_Data> Step(const _GPS_Data& fix);

private:
    std::unique_ptr<GPS::CGPSFilter> acceleration;
    GPS::CVelocityFilter velocity;
};

} // namespace study
