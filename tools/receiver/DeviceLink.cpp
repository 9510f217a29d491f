#include "tools/receiver/DeviceLink.h"

#include <cerrno>
#include <climits>

#include <unistd.h>

#include "tools/errors/ToolError.h"

namespace kestgps
{

DeviceLink::DeviceLink(const std::string& device, const std::string& name) : device(device), name(name)
{
    if (symlink(device.c_str(), name.c_str()) == 0) {
        return;
    }
    if (errno == EEXIST) {
        throw ToolError(name + " exists already; remove it or choose another name for --link");
    }
    throw ToolError("can't make the link " + name + ": " + ErrorText(errno));
}

DeviceLink::~DeviceLink()
{
    char target[PATH_MAX];
    const ssize_t length = readlink(name.c_str(), target, sizeof target);
    if (length >= 0 && device.compare(0, std::string::npos, target, static_cast<std::size_t>(length)) == 0) {
        unlink(name.c_str()); // only while it is still ours
    }
}

} // namespace kestgps
