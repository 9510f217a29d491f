// PseudoTerminal.h: a serial device for the tests, which can be pulled out and plugged in again.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "tests/support/TemporaryFolder.h"

namespace support
{

/// The far end of a line whose near end is a terminal in /dev/pts. Its path is a link, as those in
/// /dev/serial/by-id are: it stays the same over HangUp and Replug, while the terminal behind it is another
/// each time.
///
/// Throws std::runtime_error wherever the system refuses. Thread: one at a time.
class PseudoTerminal
{
public:
    PseudoTerminal();
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    /// Result: the link.
    const std::string& Path() const { return link; }
    /// Result: the terminal itself.
    const std::string& TerminalPath() const { return terminal; }

    void Write(std::string_view bytes);
    /// Writes what the line has room for, without waiting longer for a reader that may not be there.
    /// patience: [ms]. Result: the bytes written.
    std::size_t Offer(std::string_view bytes, int patience);
    /// Result: `length` bytes, or fewer when no more come for 10 s.
    std::string Read(std::size_t length);

    /// Ends the line: the terminal vanishes, and the link leads nowhere.
    void HangUp();
    /// Lets the link lead to a new line.
    void Replug();

private:
    const TemporaryFolder folder; // holds the link
    const std::string link;
    int master = -1; // owned; -1 while hung up
    std::string terminal;
};

} // namespace support
