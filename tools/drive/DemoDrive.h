// DemoDrive.h: the demonstration drive, for whoever has no receiver at hand.
#pragma once

#include <string>

namespace kestgps
{

/// An invented drive of about four and a half minutes, one burst a second, as a receiver would send it: all
/// seven sentence types with CR LF, GGA last in the burst. It starts, speeds up, turns, bends, waits at a
/// light, loses the fix in a tunnel, finds it again and parks. The text is the same at every call.
std::string DemoDrive();

} // namespace kestgps
