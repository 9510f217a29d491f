// PortAssignment.h: what stands behind a COM number, as a port takes it at its opening.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "layers/platform/PortOptions.h"

namespace platform
{

struct PortAssignment {
    std::uint32_t portNumber;
    std::string path;
    PortOptions options;
};

/// Result: what "COMn:" stands for; an empty path for a number that no name has. Never null; whoever holds it
/// isn't touched by a later AssignPort. Throws std::bad_alloc. Thread: any.
std::shared_ptr<const PortAssignment> AssignmentOf(std::uint32_t portNumber);

} // namespace platform
