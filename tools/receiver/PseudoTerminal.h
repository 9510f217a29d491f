// PseudoTerminal.h: a serial device made of software.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "tools/waiting/FileDescriptor.h"

namespace kestgps
{

/// A new pseudo-terminal, seen from the device's side; others open its path as they open a serial port. The
/// line is raw, so that every byte passes as it is, and it stays up while nobody has it open.
class PseudoTerminal
{
public:
    /// Throws ToolError when the system has none to give.
    PseudoTerminal();

    /// What others open, such as "/dev/pts/5".
    const std::string& Path() const noexcept { return path; }
    /// What to poll for POLLOUT; owned here.
    int Descriptor() const noexcept { return device.Get(); }

    /// Hands over as much as there is room for. Result: the number of bytes; 0 when there is no room.
    /// Throws ToolError when the line is broken.
    std::size_t Write(std::string_view data);
    /// Result: bytes handed over that nobody has read yet; the system may hold some more for a moment.
    std::size_t Unread() const noexcept;
    /// Throws away what was sent to the device, so that whoever sends isn't held up.
    void DropInput() noexcept;
    /// Whoever has the line open finds it hung up; the path is gone.
    void HangUp() noexcept;

private:
    FileDescriptor device;
    FileDescriptor line; // what others open; held open here too, so that a reader that goes hangs up nothing
    std::string path;
};

} // namespace kestgps
