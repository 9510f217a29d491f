// RouteFile.h: reads a route from a file.
#pragma once

#include <string>
#include <vector>

#include "GpsLib/records/GPSRecords.h"

namespace kestgps
{

/// Reads the points of a GPX 1.1 file, all tracks or, without any, all routes in their order, or of a CSV
/// file of "lon,lat" lines in degrees, which may begin with a line of headings and hold empty lines. The
/// first character that is no white space tells which: GPX begins with "<".
/// Result: at least two points, each strictly inside the ranges of longitude and latitude. Throws ToolError
/// with file, place and reason.
std::vector<tagLonLat> ReadRouteFile(const std::string& path);

/// The same of a text. name: what the reasons call it.
std::vector<tagLonLat> ReadRoute(const std::string& text, const std::string& name);

} // namespace kestgps
