#include "layers/adapter/CReceivedSentence.h"

#include <cstdint>
#include <cstring>

#include "layers/adapter/Talkers.h"

namespace adapter
{

namespace
{

constexpr std::size_t SHORTEST = 9; // "$", address and checksum: less is no sentence
constexpr int NO_DIGIT = 16;

int DigitValue(char digit) noexcept
{
    if (digit >= '0' && digit <= '9') {
        return digit - '0';
    }
    if (digit >= 'A' && digit <= 'F') {
        return digit - 'A' + 10;
    }
    return digit >= 'a' && digit <= 'f' ? digit - 'a' + 10 : NO_DIGIT;
}

bool IsSmallDigit(char digit) noexcept
{
    return digit >= 'a' && digit <= 'f';
}

} // namespace

unsigned char ChecksumOf(std::string_view bytes) noexcept
{
    std::uint64_t wide = 0; // eight sums side by side
    std::size_t at = 0;
    for (; at + sizeof wide <= bytes.size(); at += sizeof wide) {
        std::uint64_t eight = 0;
        std::memcpy(&eight, bytes.data() + at, sizeof eight);
        wide ^= eight;
    }
    wide ^= wide >> 32U;
    wide ^= wide >> 16U;
    wide ^= wide >> 8U;
    auto sum = static_cast<unsigned>(wide & 0xFFU);
    for (; at < bytes.size(); ++at) {
        sum ^= static_cast<unsigned char>(bytes[at]);
    }
    return static_cast<unsigned char>(sum);
}

CReceivedSentence::CReceivedSentence(std::string_view text, const Talkers& talkers) noexcept
    : text(text), body(BodyOf()), kind(KindOf(talkers)), type(TypeOf())
{
}

std::string_view CReceivedSentence::LineEnd() const noexcept
{
    if (text.empty() || text.back() != '\n') {
        return {};
    }
    const bool pair = text.size() > 1 && text[text.size() - 2] == '\r';
    return text.substr(text.size() - (pair ? 2 : 1));
}

bool CReceivedSentence::SmallDigits() const noexcept
{
    const std::size_t digits = body.size() + 2; // behind "$" and "*"
    return IsSmallDigit(text[digits]) || IsSmallDigit(text[digits + 1]);
}

TALKERKIND CReceivedSentence::KindOf(const Talkers& talkers) const noexcept
{
    const std::string_view talker = Talker();
    if (talker == "GP") {
        return TALKER_GP;
    }
    if (talkers.Has(talker)) {
        return talker == "GN" ? TALKER_GN : TALKER_SYSTEM;
    }
    return !talker.empty() && talker[0] == 'P' ? TALKER_PROPRIETARY : TALKER_FOREIGN;
}

SENTENCETYPE CReceivedSentence::TypeOf() const noexcept
{
    constexpr std::string_view NAMES[] = {"GGA", "GLL", "GNS", "GSA",
                                          "GSV", "RMC", "VTG", "ZDA"}; // as numbered
    const std::string_view name = text.size() >= SHORTEST ? text.substr(3, 3) : std::string_view();
    for (int type = 0; type < TYPE_OTHER; ++type) {
        if (name == NAMES[type]) {
            return static_cast<SENTENCETYPE>(type);
        }
    }
    return TYPE_OTHER;
}

std::string_view CReceivedSentence::BodyOf() const noexcept
{
    const std::size_t asterisk = text.find('*');
    if (asterisk == std::string_view::npos || asterisk < 6 || asterisk + 2 >= text.size()) {
        return {};
    }
    const std::string_view summed = text.substr(1, asterisk - 1);
    const int sum = DigitValue(text[asterisk + 1]) * 16 + DigitValue(text[asterisk + 2]);
    const bool right = sum == ChecksumOf(summed) && DigitValue(text[asterisk + 2]) != NO_DIGIT &&
                       summed.find('\0') == std::string_view::npos;
    return right ? summed : std::string_view();
}

} // namespace adapter
