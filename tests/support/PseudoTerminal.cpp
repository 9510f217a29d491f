#include "tests/support/PseudoTerminal.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <stdexcept>

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

namespace support
{

namespace
{

constexpr int PATIENCE = 10000; // [ms]

void Demand(bool done, const char* what)
{
    if (!done) {
        throw std::runtime_error(std::string("pseudo-terminal: ") + what);
    }
}

} // namespace

PseudoTerminal::PseudoTerminal() : link(folder.Path("receiver"))
{
    Replug();
}

PseudoTerminal::~PseudoTerminal()
{
    HangUp();
}

std::size_t PseudoTerminal::Offer(std::string_view bytes, int patience)
{
    pollfd watched{master, POLLOUT, 0};
    if (poll(&watched, 1, patience) <= 0) {
        return 0;
    }
    const ssize_t count = write(master, bytes.data(), bytes.size());
    Demand(count >= 0 || errno == EAGAIN, "write");
    return static_cast<std::size_t>(std::max<ssize_t>(count, 0));
}

void PseudoTerminal::Write(std::string_view bytes)
{
    for (std::size_t at = 0; at < bytes.size();) {
        at += Offer(bytes.substr(at), PATIENCE);
    }
}

std::string PseudoTerminal::Read(std::size_t length)
{
    std::string bytes(length, '\0');
    std::size_t count = 0;
    pollfd watched{master, POLLIN, 0};
    while (count < length && poll(&watched, 1, PATIENCE) > 0) {
        const ssize_t got = read(master, &bytes[count], length - count);
        Demand(got > 0, "read");
        count += static_cast<std::size_t>(got);
    }
    bytes.resize(count);
    return bytes;
}

void PseudoTerminal::HangUp()
{
    if (master >= 0) {
        unlink(link.c_str()); // first: the terminal's number is anybody's once it is free
        close(master);
        master = -1;
    }
}

void PseudoTerminal::Replug()
{
    HangUp();
    master = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
    char name[64];
    Demand(master >= 0 && grantpt(master) == 0 && unlockpt(master) == 0, "posix_openpt");
    Demand(ptsname_r(master, name, sizeof name) == 0, "ptsname_r");
    terminal = name;
    // Plain from the start: what is written before the port opens must neither come back nor be held for a
    // line.
    termios settings{};
    Demand(tcgetattr(master, &settings) == 0, "tcgetattr");
    cfmakeraw(&settings);
    Demand(tcsetattr(master, TCSANOW, &settings) == 0, "tcsetattr");
    Demand(symlink(terminal.c_str(), link.c_str()) == 0, "symlink");
}

} // namespace support
