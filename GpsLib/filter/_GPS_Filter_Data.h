// _GPS_Filter_Data.h: what the smoothing step reads and rewrites.
#pragma once

#include "GpsLib/records/GPSRecords.h"

struct _GPS_Filter_Data {
    tagLonLat lonLat;     ///< [deg] of the fix; smoothed on return
    double speed;         ///< [km/h] of the fix; smoothed on return
    double heading;       ///< [deg] clockwise from north; on return averaged below 5 km/h
    double unitDegreeLon; ///< [deg/m] of longitude at the fix
    double unitDegreeLat; ///< [deg/m] of latitude at the fix
    bool valid;           ///< the fix's own; false breaks the run of fixes
};
