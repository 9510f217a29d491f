// Kest_GPS.h: what an application includes: all that the library exports, and what that is made of.
#pragma once

#include "GpsLib/comm/CommListener.h"       // IWYU pragma: export
#include "GpsLib/comm/Observable.h"         // IWYU pragma: export
#include "GpsLib/device/CGPSCOMDevice.h"    // IWYU pragma: export
#include "GpsLib/device/CGPSDeviceEx.h"     // IWYU pragma: export
#include "GpsLib/device/GpsEvents.h"        // IWYU pragma: export
#include "GpsLib/device/HEADINGSTATETYPE.h" // IWYU pragma: export
#include "GpsLib/device/MOVESTATETYPE.h"    // IWYU pragma: export
#include "GpsLib/filter/FILTERMODEL.h"      // IWYU pragma: export
#include "GpsLib/log/CGPSLogDevice.h"       // IWYU pragma: export
#include "GpsLib/log/LOGTYPE.h"             // IWYU pragma: export
#include "GpsLib/records/GPSRecords.h"      // IWYU pragma: export
#include "GpsLib/simu/CGPSSimuDevice.h"     // IWYU pragma: export
