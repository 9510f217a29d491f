#include "GpsLib/nmea/CNMEAParser.h"

#include <cstring>

namespace
{

constexpr std::size_t TYPE_AT = 3; // behind the dollar sign and the talker

constexpr char HexDigit(unsigned value) noexcept
{
    return "0123456789ABCDEF"[value];
}

/// XOR of a text, eight bytes at a time: the sum is the same whichever of them stands where.
unsigned XorOf(const char* text, const char* end) noexcept
{
    std::uint64_t sums = 0;
    for (; end - text >= 8; text += 8) {
        std::uint64_t eight = 0;
        std::memcpy(&eight, text, sizeof eight);
        sums ^= eight;
    }
    sums ^= sums >> 32U;
    sums ^= sums >> 16U;
    sums ^= sums >> 8U;
    auto sum = static_cast<unsigned>(sums & 0xFFU);
    for (; text != end; ++text) {
        sum ^= static_cast<unsigned char>(*text);
    }
    return sum;
}

void WriteDigits(unsigned sum, char* digits) noexcept
{
    digits[0] = HexDigit(sum >> 4U);
    digits[1] = HexDigit(sum & 0x0FU);
}

} // namespace

namespace GPS
{

bool CNMEAParser::Parse(const char* sentence, std::int32_t length, std::int32_t format, _GPS_Data& record,
                        _GPS_Satellite& accumulator) const noexcept
{
    return format == 0 && Accept(sentence, length, record, accumulator);
}

bool CNMEAParser::Accept(const char* sentence, std::int32_t length, _GPS_Data& record,
                         _GPS_Satellite& accumulator) const noexcept
{
    if (sentence == nullptr || length < LENGTH_MIN || length > LENGTH_MAX || !IsGPSentence(sentence)) {
        return false;
    }
    // The result is dropped: a receiver without a fix sends sentences that fail their parser, and they still
    // count.
    Dispatch(sentence, record, accumulator);
    return true;
}

bool CNMEAParser::Dispatch(const char* sentence, _GPS_Data& record,
                           _GPS_Satellite& accumulator) const noexcept
{
    if (!IsGPSentence(sentence)) {
        return false;
    }
    const char* const type = sentence + TYPE_AT;
    const auto typeIs = [type](char first, char second, char third) {
        return type[0] == first && type[1] == second && type[2] == third; // ends early on the terminator
    };
    if (typeIs('G', 'G', 'A')) {
        return ParseGGA(sentence, record);
    }
    if (typeIs('G', 'L', 'L')) {
        return ParseGLL(sentence, record);
    }
    if (typeIs('G', 'S', 'A')) {
        return ParseGSA(sentence, record);
    }
    if (typeIs('G', 'S', 'V')) {
        return ParseGSV(sentence, record, accumulator);
    }
    if (typeIs('R', 'M', 'C')) {
        return ParseRMC(sentence, record);
    }
    if (typeIs('V', 'T', 'G')) {
        return ParseVTG(sentence, record);
    }
    if (typeIs('Z', 'D', 'A')) {
        return ParseZDA(sentence, record);
    }
    return false;
}

bool CNMEAParser::IsGPSentence(const char* sentence) const noexcept
{
    return sentence != nullptr && sentence[0] == '$' && sentence[1] == 'G' && sentence[2] == 'P';
}

bool CNMEAParser::ComputeChecksum(const char* text, char* digits) const noexcept
{
    if (text == nullptr || *text == '\0' || digits == nullptr) {
        return false;
    }
    WriteDigits(XorOf(text, text + std::strlen(text)), digits);
    return true;
}

bool CNMEAParser::VerifyChecksum(const char* sentence) const noexcept
{
    const char* const asterisk = sentence == nullptr ? nullptr : std::strchr(sentence, '*');
    if (asterisk == nullptr) {
        return false;
    }
    const char* const text = sentence + 1; // the dollar sign stays out, and so does an asterisk in its place
    const char* const end = asterisk == sentence ? text + std::strlen(text) : asterisk;
    if (text == end) {
        return false; // no text to sum
    }
    char digits[2];
    WriteDigits(XorOf(text, end), digits);
    return asterisk[1] == digits[0] && asterisk[2] == digits[1];
}

bool CNMEAParser::PassesFrame(const char* sentence) const noexcept
{
    return IsGPSentence(sentence) && VerifyChecksum(sentence);
}

} // namespace GPS
