// PortMap.h: which device stands behind a COM number, and how its bytes come.
#pragma once

#include <cstdint>
#include <string>

#include "GpsLib/contracts/KestApi.h"
#include "layers/adapter/AdapterCounts.h"
#include "layers/platform/PortOptions.h"

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

/// The same, and what the port is to do with its bytes. The other form, and an empty path, have no options.
/// options: copied.
/// Throws also what copying the tap throws; nothing has then changed.
KEST_API bool AssignPort(std::uint32_t portNumber, const std::string& path, const PortOptions& options);

/// Result: the device path that "COMn:" stands for; empty for a number that no name has.
/// Throws std::bad_alloc.
/// Thread: any.
KEST_API std::string PortPath(std::uint32_t portNumber);

/// What the adapter of the open "COMn:" has done since the port was opened.
/// Result: false when it isn't open or has no adapter; nothing has then changed.
/// Thread: any.
KEST_API bool PortCounts(std::uint32_t portNumber, adapter::AdapterCounts& counts) noexcept;

} // namespace platform
