// DriveLog.h: a made-up log of a drive, the same bytes on every processor.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "GpsLib/records/GPSRecords.h"

namespace processors
{

/// The log: all seven sentence types, a vehicle on the move, stretches without a fix, fields and sentences
/// that no receiver should send. Only integers are reckoned with, so that a difference between two processors
/// is never this function's own.
std::string MakeDriveLog(std::size_t sentences);

/// A route of the same kind, from 50 degrees south to about 60 north, in kilometres from point to point, with
/// some points that coincide.
std::vector<tagLonLat> MakeRoute(std::size_t points);

} // namespace processors
