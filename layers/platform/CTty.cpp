#include "layers/platform/CTty.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace platform
{

namespace
{

// TIOCEXCL keeps out whoever doesn't lock, and refuses what is no terminal; the lock keeps out root, whom
// TIOCEXCL lets in. The lock comes first: it fails for a device in use before anything has been done to it.
bool Claim(int tty)
{
    return flock(tty, LOCK_EX | LOCK_NB) == 0 && ioctl(tty, TIOCEXCL) == 0;
}

} // namespace

bool CTty::Open(const char* path) noexcept
{
    int opened;
    do {
        opened = open(path, O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    } while (opened < 0 && errno == EINTR);
    if (opened < 0) {
        return false;
    }
    if (!Claim(opened)) {
        close(opened);
        return false;
    }
    descriptor = opened;
    return true;
}

void CTty::Close() noexcept
{
    if (IsOpen()) {
        // Both outlast the descriptor: the first while anything else keeps the terminal alive, the second
        // while a forked process has a copy.
        ioctl(descriptor, TIOCNXCL);
        flock(descriptor, LOCK_UN);
        close(descriptor); // closed even if a signal interrupts it
        descriptor = -1;
    }
}

} // namespace platform
