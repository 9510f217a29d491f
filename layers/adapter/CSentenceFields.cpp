#include "layers/adapter/CSentenceFields.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "layers/adapter/CReceivedSentence.h"

namespace adapter
{

namespace
{

constexpr std::size_t BLOCK = 8; // [byte] looked at together

/// left: [byte] that there are, of which BLOCK are looked at.
/// Result: the highest bit of each byte that is a comma, the first byte lowest.
std::uint64_t CommasIn(const char* bytes, std::size_t left) noexcept
{
    constexpr std::uint64_t EACH = 0x0101010101010101U;
    constexpr std::uint64_t LOW_BITS = 0x7FU * EACH;
    std::uint64_t eight = 0;
    if (left >= BLOCK) {
        std::memcpy(&eight, bytes, BLOCK); // of a length that the compiler knows
    } else {
        std::memcpy(&eight, bytes, left);
    }
#if __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
    eight = __builtin_bswap64(eight);
#endif
    const std::uint64_t others = eight ^ ',' * EACH; // zero where there is a comma
    return ~(((others & LOW_BITS) + LOW_BITS) | others | LOW_BITS);
}

} // namespace

void CSentenceFields::Part(std::string_view body) noexcept
{
    const char* begin = body.data();
    const char* const end = begin + body.size();
    Field* next = fields;
    for (const char* block = begin; block < end; block += BLOCK) {
        for (std::uint64_t commas = CommasIn(block, static_cast<std::size_t>(end - block)); commas != 0;
             commas &= commas - 1) {
            if (next == fields + MOST - 1) {
                break;
            }
            const char* const at = block + __builtin_ctzll(commas) / 8;
            *next++ = {begin, static_cast<std::size_t>(at - begin)};
            begin = at + 1;
        }
    }
    *next++ = {begin, static_cast<std::size_t>(end - begin)};
    count = static_cast<std::size_t>(next - fields);
    length = body.size() + 4;
}

void CSentenceFields::Set(std::size_t number, std::string_view text) noexcept
{
    if (number < count) {
        length = length - fields[number].length + text.size();
        fields[number] = {text.empty() ? "" : text.data(), text.size()};
    }
}

void CSentenceFields::Add(std::string_view text) noexcept
{
    if (count < MOST) {
        fields[count++] = {text.empty() ? "" : text.data(), text.size()};
        length += 1 + text.size();
    }
}

void CSentenceFields::CutBehind(std::size_t number) noexcept
{
    while (count > number + 1) {
        length -= 1 + fields[--count].length;
    }
}

void CSentenceFields::Compose(std::string_view lineEnd, SentenceText& sentence) const noexcept
{
    char* to = sentence.bytes;
    for (std::size_t number = 0; number < count;) {
        *to++ = number == 0 ? '$' : ',';
        const char* const begin = fields[number].text;
        const char* end = begin + fields[number].length;
        for (++number; number < count && *end == ',' && end + 1 == fields[number].text; ++number) {
            end += 1 + fields[number].length; // as they came, side by side
        }
        to = std::copy(begin, end, to);
    }
    *to++ = '*';
    to = std::copy(lineEnd.begin(), lineEnd.end(), to + 2);
    sentence.length = static_cast<std::size_t>(to - sentence.bytes);
    TakeForGp(sentence, Length() - 4);
}

void TakeForGp(SentenceText& sentence, std::size_t bodyLength) noexcept
{
    constexpr char DIGITS[] = "0123456789ABCDEF";
    sentence.bytes[1] = 'G';
    sentence.bytes[2] = 'P';
    const unsigned sum = ChecksumOf({sentence.bytes + 1, bodyLength});
    sentence.bytes[bodyLength + 2] = DIGITS[sum / 16];
    sentence.bytes[bodyLength + 3] = DIGITS[sum % 16];
}

} // namespace adapter
