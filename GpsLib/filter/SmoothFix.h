// SmoothFix.h: one epoch through the smoothing step, for the live receiver and for replay alike.
#pragma once

#include "GpsLib/records/GPSRecords.h"

namespace GPS
{

class CGPSFilter;

/// Rewrites position, speed and heading of the fix; everything else stays as parsed.
void SmoothFix(CGPSFilter& filter, _GPS_Data& fix) noexcept;

} // namespace GPS
