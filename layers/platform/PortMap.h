// PortMap.h: which device stands behind a COM number.
#pragma once

#include <cstdint>
#include <string>

#include "GpsLib/contracts/KestApi.h"

namespace platform
{

/// The highest port: names have one digit, "COM1:" to "COM9:".
constexpr std::uint32_t PORT_MAX = 9;

/// Lets "COMn:" stand for a device path instead of /dev/ttyS(n-1); it counts from the next open on.
/// portNumber: the n, 1 to PORT_MAX.
/// path: "/dev/ttyUSB0", "/dev/serial/by-id/...", a pseudo-terminal; a link is followed at each open, also
/// when a port that had gone comes back. An empty path brings the default back.
/// Result: false for any other port number, which no name has; nothing has then changed.
/// Throws std::bad_alloc.
/// Thread: any.
KEST_API bool AssignPort(std::uint32_t portNumber, const std::string& path);

/// Result: the device path that "COMn:" stands for; empty for a number that no name has.
/// Throws std::bad_alloc.
/// Thread: any.
KEST_API std::string PortPath(std::uint32_t portNumber);

} // namespace platform
