#include "layers/platform/PortMap.h"

#include <map>
#include <mutex>

namespace platform
{

namespace
{

struct Assignments {
    std::mutex lock;
    std::map<std::uint32_t, std::string> paths; // under lock; port number to device path
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
    if (!IsPort(portNumber)) {
        return false;
    }
    Assignments& assignments = TheAssignments();
    const std::lock_guard<std::mutex> guard(assignments.lock);
    if (path.empty()) {
        assignments.paths.erase(portNumber);
    } else {
        assignments.paths.insert_or_assign(portNumber, path);
    }
    return true;
}

std::string PortPath(std::uint32_t portNumber)
{
    if (!IsPort(portNumber)) {
        return {};
    }
    Assignments& assignments = TheAssignments();
    const std::lock_guard<std::mutex> guard(assignments.lock);
    const auto assigned = assignments.paths.find(portNumber);
    return assigned != assignments.paths.end() ? assigned->second
                                               : "/dev/ttyS" + std::to_string(portNumber - 1);
}

} // namespace platform
