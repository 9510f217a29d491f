// PortFailure.h: why a serial port wouldn't open.
#pragma once

#include <string>

namespace kestgps
{

/// Looks a device over after it wouldn't open, since the library says no more than that.
/// settings: as the user would write them. Result: one line that says what is wrong and what to do.
std::string WhyPortFailed(const std::string& path, const std::string& settings);

} // namespace kestgps
