#include "layers/platform/PortMap.h"

#include <map>
#include <memory>
#include <mutex>

#include "layers/platform/PortAssignment.h"

namespace platform
{

namespace
{

using Assigned = std::shared_ptr<const PortAssignment>; // shared with the port while it is open

struct Assignments {
    std::mutex lock;
    std::map<std::uint32_t, Assigned> ports; // under lock; by port number
};

Assignments& TheAssignments()
{
    static Assignments
        assignments; // made at the first call: it may come before this file's own initialisation
    return assignments;
}

bool IsPort(std::uint32_t portNumber) noexcept
{
    return portNumber >= 1 && portNumber <= PORT_MAX;
}

} // namespace

bool AssignPort(std::uint32_t portNumber, const std::string& path)
{
    return AssignPort(portNumber, path, PortOptions());
}

bool AssignPort(std::uint32_t portNumber, const std::string& path, const PortOptions& options)
{
    if (!IsPort(portNumber)) {
        return false;
    }
    // The old one goes at the end, with the lock free: its tap is the caller's.
    Assigned assigned =
        path.empty() ? nullptr : std::make_shared<PortAssignment>(PortAssignment{portNumber, path, options});
    Assignments& assignments = TheAssignments();
    const std::lock_guard<std::mutex> guard(assignments.lock);
    assignments.ports[portNumber].swap(assigned);
    return true;
}

std::string PortPath(std::uint32_t portNumber)
{
    return AssignmentOf(portNumber)->path;
}

std::shared_ptr<const PortAssignment> AssignmentOf(std::uint32_t portNumber)
{
    if (!IsPort(portNumber)) {
        return std::make_shared<PortAssignment>();
    }
    Assignments& assignments = TheAssignments();
    {
        const std::lock_guard<std::mutex> guard(assignments.lock);
        const auto found = assignments.ports.find(portNumber);
        if (found != assignments.ports.end() && found->second != nullptr) {
            return found->second;
        }
    }
    return std::make_shared<PortAssignment>(
        PortAssignment{portNumber, "/dev/ttyS" + std::to_string(portNumber - 1), {}});
}

} // namespace platform
