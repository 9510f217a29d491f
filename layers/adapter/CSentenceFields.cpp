#include "layers/adapter/CSentenceFields.h"

#include <algorithm>

#include "layers/adapter/CReceivedSentence.h"

namespace adapter
{

CSentenceFields::CSentenceFields(std::string_view body) noexcept
{
    std::size_t comma = body.find(',');
    while (comma != std::string_view::npos && count < MOST - 1) {
        fields[count++] = body.substr(0, comma);
        body.remove_prefix(comma + 1);
        comma = body.find(',');
    }
    fields[count++] = body;
}

void CSentenceFields::Set(std::size_t number, std::string_view text) noexcept
{
    if (number < count) {
        fields[number] = text;
    }
}

void CSentenceFields::Add(std::string_view text) noexcept
{
    if (count < MOST) {
        fields[count++] = text;
    }
}

void CSentenceFields::CutBehind(std::size_t number) noexcept
{
    count = std::min(count, number + 1);
}

std::size_t CSentenceFields::Length() const noexcept
{
    std::size_t length = count + 3; // "$" and a comma before each field; "*" and two digits
    for (std::size_t number = 0; number < count; ++number) {
        length += fields[number].size();
    }
    return length;
}

void CSentenceFields::Compose(std::string_view lineEnd, SentenceText& sentence) const noexcept
{
    constexpr char DIGITS[] = "0123456789ABCDEF";
    char* to = sentence.bytes;
    for (std::size_t number = 0; number < count; ++number) {
        *to++ = number == 0 ? '$' : ',';
        to = std::copy(fields[number].begin(), fields[number].end(), to);
    }
    std::copy_n("GP", 2, sentence.bytes + 1);
    const char* const first = sentence.bytes + 1;
    const unsigned sum = ChecksumOf({first, static_cast<std::size_t>(to - first)});
    *to++ = '*';
    *to++ = DIGITS[sum / 16];
    *to++ = DIGITS[sum % 16];
    to = std::copy(lineEnd.begin(), lineEnd.end(), to);
    sentence.length = static_cast<std::size_t>(to - sentence.bytes);
}

} // namespace adapter
