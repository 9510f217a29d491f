#include "tools/receiver/PseudoTerminal.h"

#include <cerrno>
#include <climits>
#include <cstdlib>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include "tools/errors/ToolError.h"

namespace kestgps
{

namespace
{

bool MakeRaw(int terminal) noexcept
{
    termios settings{};
    if (tcgetattr(terminal, &settings) != 0) {
        return false;
    }
    cfmakeraw(&settings);
    return tcsetattr(terminal, TCSANOW, &settings) == 0;
}

} // namespace

PseudoTerminal::PseudoTerminal() : device(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK))
{
    char name[PATH_MAX];
    if (device.IsOpen() && grantpt(device.Get()) == 0 && unlockpt(device.Get()) == 0 &&
        ptsname_r(device.Get(), name, sizeof name) == 0) {
        path = name;
        line = FileDescriptor(open(name, O_RDWR | O_NOCTTY | O_CLOEXEC));
    }
    if (!line.IsOpen() || !MakeRaw(line.Get())) {
        throw ToolError("can't make a pseudo-terminal: " + ErrorText(errno));
    }
}

std::size_t PseudoTerminal::Write(std::string_view data)
{
    const ssize_t written = write(device.Get(), data.data(), data.size());
    if (written < 0 && errno != EAGAIN && errno != EINTR) {
        throw ToolError("can't write to " + path + ": " + ErrorText(errno));
    }
    return written > 0 ? static_cast<std::size_t>(written) : 0;
}

std::size_t PseudoTerminal::Unread() const noexcept
{
    int waiting = 0;
    return ioctl(line.Get(), FIONREAD, &waiting) == 0 && waiting > 0 ? static_cast<std::size_t>(waiting) : 0;
}

void PseudoTerminal::DropInput() noexcept
{
    char dropped[256];
    while (read(device.Get(), dropped, sizeof dropped) > 0) {
    }
}

void PseudoTerminal::HangUp() noexcept
{
    device.Close();
    line.Close();
}

} // namespace kestgps
