// CReceivedBytes.h: what a port has received and nobody has read yet, and where a read may end in it.
#pragma once

#include <cstddef>

namespace platform
{

/// A fixed buffer that gives away whole lines where it can: a sentence cut by the end of a read would be
/// lost.
class CReceivedBytes
{
public:
    /// As long as the kernel's own queue of a terminal. A read of more is served as one of this length.
    static constexpr std::size_t CAPACITY = 4096; // [byte]

    std::size_t Count() const noexcept { return count; }
    /// Room for CAPACITY - Count() bytes.
    char* Free() noexcept { return bytes + count; }
    /// Takes over what was written to Free().
    void Add(std::size_t length) noexcept { count += length; }
    void Clear() noexcept { count = 0; }
    /// Drops the line that was still arriving.
    void DropTornLine() noexcept { count = WholeLines(count); }

    /// Moves bytes out, the oldest first, and keeps the rest.
    /// room: at most so many.
    /// torn: whether a line that isn't complete goes out too. Else the bytes end at a line feed, unless they
    /// fill the room without one: a line without end must not block.
    /// Result: the bytes moved.
    std::size_t MoveOut(char* buffer, std::size_t room, bool torn) noexcept;

private:
    /// Result: the length of the whole lines within the first `length` bytes.
    std::size_t WholeLines(std::size_t length) const noexcept;

    char bytes[CAPACITY];
    std::size_t count = 0;
};

} // namespace platform
