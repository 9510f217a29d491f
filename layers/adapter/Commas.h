// Commas.h: where the commas of a text stand, found eight bytes at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace adapter
{

constexpr std::size_t COMMA_BLOCK = 8; // [byte] looked at together

/// Result: the highest bit of each of the COMMA_BLOCK bytes that is a comma, the first byte lowest.
inline std::uint64_t CommasInBlock(const char* bytes) noexcept
{
    constexpr std::uint64_t EACH = 0x0101010101010101U;
    constexpr std::uint64_t LOW_BITS = 0x7FU * EACH;
    std::uint64_t eight = 0;
    std::memcpy(&eight, bytes, COMMA_BLOCK);
#if __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
    eight = __builtin_bswap64(eight);
#endif
    const std::uint64_t others = eight ^ ',' * EACH; // zero where there is a comma
    return ~(((others & LOW_BITS) + LOW_BITS) | others | LOW_BITS);
}

/// Calls found(const char*) with the place of each comma, in order.
template <class Found>
void ForEachComma(std::string_view text, Found found) noexcept
{
    const char* at = text.data();
    for (std::size_t blocks = text.size() / COMMA_BLOCK; blocks > 0; --blocks) {
        for (std::uint64_t commas = CommasInBlock(at); commas != 0; commas &= commas - 1) {
            found(at + __builtin_ctzll(commas) / 8);
        }
        at += COMMA_BLOCK;
    }
    for (const char* const end = text.data() + text.size(); at != end; ++at) {
        if (*at == ',') {
            found(at);
        }
    }
}

} // namespace adapter
