#include "layers/platform/CReceivedBytes.h"

#include <algorithm>
#include <string_view>

namespace platform
{

CReceivedBytes::CReceivedBytes(std::size_t capacity, bool cutAtSentences)
    : capacity(capacity), cutAtSentences(cutAtSentences), bytes(new char[capacity])
{
}

void CReceivedBytes::Add(const char* added, std::size_t length) noexcept
{
    std::copy(added, added + length, bytes.get() + count);
    count += length;
}

void CReceivedBytes::OnSentence(const char* sentence, std::size_t length) noexcept
{
    if (length <= Room()) {
        Add(sentence, length);
    }
}

std::size_t CReceivedBytes::MoveOut(char* buffer, std::size_t room, bool torn) noexcept
{
    std::size_t moved = std::min(count, room);
    if (!torn) {
        std::size_t lines = WholeLines(moved);
        if (lines == 0 && moved == room) {
            lines = UpToLineFeed(moved); // rather between two lines than inside one
        }
        const bool endless = lines == 0 && moved == room;
        moved = endless ? moved : lines;
    }
    char* const first = bytes.get();
    std::copy(first, first + moved, buffer);
    std::copy(first + moved, first + count, first);
    count -= moved;
    return moved;
}

bool CReceivedBytes::HoldsGga() const noexcept
{
    constexpr std::size_t TYPE = 3; // its place in the address, behind "$" and the talker
    const std::string_view lines(bytes.get(), WholeLines(count));
    for (std::size_t at = lines.find('$'); at != std::string_view::npos; at = lines.find('$', at + 1)) {
        if (lines.substr(at).substr(TYPE, 4) == "GGA,") {
            return true;
        }
    }
    return false;
}

std::size_t CReceivedBytes::WholeLines(std::size_t length) const noexcept
{
    length = UpToLineFeed(length);
    while (cutAtSentences && length > 0 && !EndsSentence(length)) {
        length = UpToLineFeed(length - 1);
    }
    return length;
}

std::size_t CReceivedBytes::UpToLineFeed(std::size_t length) const noexcept
{
    while (length > 0 && bytes[length - 1] != '\n') {
        --length;
    }
    return length;
}

// length: up to a line feed, the last one of them.
bool CReceivedBytes::EndsSentence(std::size_t length) const noexcept
{
    if (length < count) {
        return bytes[length] == '$';
    }
    const std::size_t begin = UpToLineFeed(length - 1);
    return std::string_view(bytes.get() + begin, length - begin).find('$') != std::string_view::npos;
}

} // namespace platform
