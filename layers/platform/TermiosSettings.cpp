#include "layers/platform/TermiosSettings.h"

#include <cstddef>
#include <cstdint>
#include <iterator>

// The kernel's own settings, since only they take any speed; <termios.h> can't stand beside them.
#include <asm/termbits.h>
#include <sys/ioctl.h>

namespace platform
{

namespace
{

constexpr tcflag_t PARITY_MASK = PARENB | PARODD | CMSPAR;
constexpr tcflag_t FRAME_MASK = CSIZE | PARITY_MASK | CSTOPB;

constexpr BYTE SMALLEST_SIZE = 5; // [bit]
constexpr tcflag_t SIZE_FLAGS[] = {CS5, CS6, CS7, CS8};

constexpr tcflag_t PARITY_FLAGS[] = {
    0,                        // NOPARITY
    PARENB | PARODD,          // ODDPARITY
    PARENB,                   // EVENPARITY
    PARENB | PARODD | CMSPAR, // MARKPARITY
    PARENB | CMSPAR,          // SPACEPARITY
};

// Both ends may be off, and a frame of ten or eleven bits is read wrongly from about 5 % between them on.
constexpr std::uint64_t SPEED_TOLERANCE = 3; // [%]

// Result: false for a frame that there is not; 1.5 stop bits no driver has.
bool FrameFlags(const DCB& settings, tcflag_t& flags)
{
    const std::size_t size = std::size_t{settings.ByteSize} - SMALLEST_SIZE; // huge below five bits
    if (size >= std::size(SIZE_FLAGS) || settings.Parity >= std::size(PARITY_FLAGS) ||
        (settings.StopBits != ONESTOPBIT && settings.StopBits != TWOSTOPBITS)) {
        return false;
    }
    const tcflag_t stop = settings.StopBits == TWOSTOPBITS ? CSTOPB : 0;
    flags = SIZE_FLAGS[size] | PARITY_FLAGS[settings.Parity] | stop;
    return true;
}

termios2 PlainLine(const termios2& before, tcflag_t frame, DWORD speed)
{
    termios2 plain = before;
    // A cable that is pulled sends a break, which is no data. A byte of wrong parity comes through as it is:
    // the sum of its sentence tells.
    plain.c_iflag = IGNBRK;
    plain.c_oflag = 0;
    plain.c_lflag = 0;
    plain.c_cflag = (before.c_cflag & HUPCL) | frame | CLOCAL | CREAD | BOTHER;
    plain.c_cc[VMIN] = 1; // so reading no bytes means a hang-up and nothing else
    plain.c_cc[VTIME] = 0;
    plain.c_ispeed = speed;
    plain.c_ospeed = speed;
    return plain;
}

// Drivers correct what they can't do instead of refusing it, so what they made of it counts.
bool Took(int tty, const termios2& asked)
{
    termios2 got{};
    if (ioctl(tty, TCSETS2, &asked) != 0 || ioctl(tty, TCGETS2, &got) != 0) {
        return false;
    }
    const std::uint64_t wanted = asked.c_ospeed;
    const std::uint64_t actual = got.c_ospeed;
    const std::uint64_t error = actual > wanted ? actual - wanted : wanted - actual;
    return ((got.c_cflag ^ asked.c_cflag) & FRAME_MASK) == 0 && error * 100 <= wanted * SPEED_TOLERANCE;
}

template <std::size_t COUNT>
BYTE IndexOf(tcflag_t flags, const tcflag_t (&table)[COUNT])
{
    BYTE index = 0;
    while (index + 1U < COUNT && table[index] != flags) {
        ++index;
    }
    return index;
}

} // namespace

bool ApplySettings(int tty, const DCB& settings) noexcept
{
    tcflag_t frame = 0;
    termios2 before{};
    if (settings.BaudRate == 0 || !FrameFlags(settings, frame) || ioctl(tty, TCGETS2, &before) != 0) {
        return false; // speed 0 would hang up
    }
    if (!Took(tty, PlainLine(before, frame, settings.BaudRate))) {
        ioctl(tty, TCSETS2, &before);
        return false;
    }
    return true;
}

bool ReadSettings(int tty, DCB& settings) noexcept
{
    termios2 present{};
    if (ioctl(tty, TCGETS2, &present) != 0) {
        return false;
    }
    const tcflag_t flags = present.c_cflag;
    const tcflag_t parity = (flags & PARENB) != 0 ? flags & PARITY_MASK : 0;
    settings.BaudRate = present.c_ospeed;
    settings.ByteSize = static_cast<BYTE>(SMALLEST_SIZE + IndexOf(flags & CSIZE, SIZE_FLAGS));
    settings.Parity = IndexOf(parity, PARITY_FLAGS);
    settings.StopBits = (flags & CSTOPB) != 0 ? TWOSTOPBITS : ONESTOPBIT;
    return true;
}

} // namespace platform
