#include "layers/adapter/CSentenceFields.h"

#include <algorithm>

#include "layers/adapter/CReceivedSentence.h"
#include "layers/adapter/Commas.h"

namespace adapter
{

namespace
{

/// Makes the talker of a sentence GP and puts the checksum and the line end behind its body.
/// bodyLength: [byte] that stand behind "$" already.
void Finish(SentenceText& sentence, std::string_view lineEnd, std::size_t bodyLength) noexcept
{
    constexpr char DIGITS[] = "0123456789ABCDEF";
    sentence.bytes[1] = 'G';
    sentence.bytes[2] = 'P';
    const unsigned sum = ChecksumOf({sentence.bytes + 1, bodyLength});
    char* to = sentence.bytes + 1 + bodyLength;
    *to++ = '*';
    *to++ = DIGITS[sum / 16];
    *to++ = DIGITS[sum % 16];
    for (const char letter : lineEnd) {
        *to++ = letter;
    }
    sentence.length = static_cast<std::size_t>(to - sentence.bytes);
}

} // namespace

void CSentenceFields::Part(std::string_view body) noexcept
{
    const char* begin = body.data();
    Field* next = fields;
    ForEachComma(body, [&](const char* comma) {
        if (next != fields + MOST - 1) {
            *next++ = {begin, static_cast<std::size_t>(comma - begin)};
            begin = comma + 1;
        }
    });
    *next++ = {begin, static_cast<std::size_t>(body.data() + body.size() - begin)};
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
    Finish(sentence, lineEnd, Length() - 4);
}

void Compose(std::string_view body, std::string_view lineEnd, SentenceText& sentence) noexcept
{
    sentence.bytes[0] = '$';
    Finish(sentence, lineEnd, body.copy(sentence.bytes + 1, body.size()));
}

} // namespace adapter
