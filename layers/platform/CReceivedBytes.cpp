#include "layers/platform/CReceivedBytes.h"

#include <algorithm>

namespace platform
{

std::size_t CReceivedBytes::MoveOut(char* buffer, std::size_t room, bool torn) noexcept
{
    std::size_t moved = std::min(count, room);
    const std::size_t lines = WholeLines(moved);
    const bool endless = lines == 0 && moved == room;
    if (!torn && !endless) {
        moved = lines;
    }
    std::copy(bytes, bytes + moved, buffer);
    std::copy(bytes + moved, bytes + count, bytes);
    count -= moved;
    return moved;
}

std::size_t CReceivedBytes::WholeLines(std::size_t length) const noexcept
{
    while (length > 0 && bytes[length - 1] != '\n') {
        --length;
    }
    return length;
}

} // namespace platform
