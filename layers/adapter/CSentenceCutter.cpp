#include "layers/adapter/CSentenceCutter.h"

#include <algorithm>
#include <cstring>

namespace adapter
{

namespace
{

/// Result: where the byte is, or `length` when it isn't there.
std::size_t Find(char byte, const char* bytes, std::size_t length) noexcept
{
    const void* const found = std::memchr(bytes, byte, length);
    return found != nullptr ? static_cast<std::size_t>(static_cast<const char*>(found) - bytes) : length;
}

} // namespace

std::size_t CSentenceCutter::Take(const char* bytes, std::size_t length) noexcept
{
    const std::size_t skipped = state == INSIDE ? 0 : SkipStray(bytes, length);
    bytes += skipped;
    length -= skipped;
    const std::size_t own = count == 0 && length > 0 ? 1 : 0; // the "$" that begins this one
    const std::size_t line = Find('\n', bytes, length);
    const std::size_t next = own + Find('$', bytes + own, line - own);
    std::size_t taken = next;
    if (line < length || next < line) {
        state = ENDED;
        taken += next == line ? 1 : 0; // the line feed belongs to the sentence
    }
    Append(bytes, taken);
    return skipped + taken;
}

void CSentenceCutter::EndLine() noexcept
{
    if (text[count - 1] == '\n') {
        return;
    }
    while (text[count - 1] == '\r') { // not for ever: the first one is "$"
        --count;
    }
    text[count++] = '\r';
    text[count++] = '\n';
}

bool CSentenceCutter::End() noexcept
{
    const bool inside = state == INSIDE;
    state = inside ? ENDED : OUTSIDE;
    return inside;
}

void CSentenceCutter::DropTorn() noexcept
{
    strayBytes += state == INSIDE ? count : 0;
    state = OUTSIDE;
}

std::size_t CSentenceCutter::SkipStray(const char* bytes, std::size_t length) noexcept
{
    const std::size_t stray = bytes[0] == '$' ? 0 : Find('$', bytes, length);
    strayBytes += stray;
    if (stray == length) {
        state = OUTSIDE;
        return length;
    }
    state = INSIDE;
    kept = true;
    count = 0;
    return stray;
}

void CSentenceCutter::Append(const char* bytes, std::size_t length) noexcept
{
    const std::size_t fits = std::min(length, LONGEST - count);
    std::memcpy(text + count, bytes, fits);
    count += fits;
    kept = kept && fits == length;
}

} // namespace adapter
