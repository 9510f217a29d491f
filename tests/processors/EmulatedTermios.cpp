// EmulatedTermios.cpp: the terminal settings with any speed, for an emulator that knows only those with the
// usual ones.
//
// The emulator refuses TCGETS2 and TCSETS2. This `ioctl`, linked in front of the C library's, makes the older
// calls of them and carries the speed in their flags; a speed that these have no flag for is refused, as
// drivers do.
#include <cerrno>
#include <cstdarg>
#include <cstring>
#include <iterator>

#include <asm/ioctls.h>
#include <asm/termbits.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace
{

struct Speed {
    tcflag_t flag;
    speed_t bits; // [bit/s]
};

constexpr Speed SPEEDS[] = {
    {B300, 300},       {B600, 600},       {B1200, 1200},     {B2400, 2400},   {B4800, 4800},
    {B9600, 9600},     {B19200, 19200},   {B38400, 38400},   {B57600, 57600}, {B115200, 115200},
    {B230400, 230400}, {B460800, 460800}, {B921600, 921600},
};

/// Both structures begin with the same fields, which is all of the older one.
int GetSettings(int tty, termios2& settings)
{
    termios older{};
    if (syscall(SYS_ioctl, tty, TCGETS, &older) != 0) {
        return -1;
    }
    std::memcpy(&settings, &older, sizeof older);
    for (const Speed& speed : SPEEDS) {
        if ((older.c_cflag & CBAUD) == speed.flag) {
            settings.c_ispeed = speed.bits;
            settings.c_ospeed = speed.bits;
        }
    }
    return 0;
}

int SetSettings(int tty, const termios2& settings)
{
    termios older{};
    std::memcpy(&older, &settings, sizeof older);
    if ((settings.c_cflag & CBAUD) == BOTHER) {
        const Speed* speed = std::begin(SPEEDS);
        while (speed != std::end(SPEEDS) && speed->bits != settings.c_ospeed) {
            ++speed;
        }
        if (speed == std::end(SPEEDS)) {
            errno = EINVAL;
            return -1;
        }
        older.c_cflag = (older.c_cflag & ~static_cast<tcflag_t>(CBAUD)) | speed->flag;
    }
    return static_cast<int>(syscall(SYS_ioctl, tty, TCSETS, &older));
}

} // namespace

extern "C" int ioctl(int descriptor, unsigned long request, ...) noexcept
{
    va_list arguments;
    va_start(arguments, request);
    void* const argument = va_arg(arguments, void*);
    va_end(arguments);
    switch (request) {
    case TCGETS2:
        return GetSettings(descriptor, *static_cast<termios2*>(argument));
    case TCSETS2:
        return SetSettings(descriptor, *static_cast<const termios2*>(argument));
    default:
        return static_cast<int>(syscall(SYS_ioctl, descriptor, request, argument));
    }
}
