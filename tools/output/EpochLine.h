// EpochLine.h: one line of text for one epoch.
#pragma once

#include <string>

#include "GpsLib/device/HEADINGSTATETYPE.h"
#include "GpsLib/device/MOVESTATETYPE.h"
#include "GpsLib/records/GPSRecords.h"

namespace kestgps
{

/// UTC time, latitude and longitude in degrees, speed, heading, satellites in use and in view, the
/// dilutions. Without a fix the position, speed and heading of the record mean nothing and are left out.
std::string EpochLine(const _GPS_Data& fix);

/// The line of an epoch of which nothing is known but that it had no fix; a receiver's getters keep the rest
/// to themselves.
std::string NoFixLine();

/// What the line of an epoch may end in: the vehicle's states as words.
std::string StateWords(MOVESTATETYPE move, HEADINGSTATETYPE heading);

} // namespace kestgps
