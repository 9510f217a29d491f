#include "tools/live/PortFailure.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "tools/errors/ToolError.h"
#include "tools/waiting/FileDescriptor.h"

namespace kestgps
{

namespace
{

std::string WhyNotOpened(const std::string& path, int error)
{
    switch (error) {
    case ENOENT:
    case ENODEV:
    case ENXIO:
    case ENOTDIR:
        return "no such device: " + path + "; plug the receiver in or choose another --device or --port";
    case EACCES:
    case EPERM:
        return "no permission for " + path + "; join the group that owns it";
    case EBUSY:
        return path + " is busy; close the program that has it open";
    case EISDIR:
        return path + " is not a serial device";
    default:
        return "can't open " + path + ": " + ErrorText(error);
    }
}

} // namespace

std::string WhyPortFailed(const std::string& path, const std::string& settings)
{
    const FileDescriptor device(open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    if (!device.IsOpen()) {
        return WhyNotOpened(path, errno);
    }
    errno = 0;
    if (isatty(device.Get()) == 0) {
        return errno == EIO ? WhyNotOpened(path, ENXIO) // a name of a port that the machine doesn't have
                            : path + " is not a serial device";
    }
    if (flock(device.Get(), LOCK_EX | LOCK_NB) != 0) {
        return WhyNotOpened(path, EBUSY);
    }
    return path + " refuses the settings " + settings + "; try others";
}

} // namespace kestgps
