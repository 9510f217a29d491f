#include "layers/adapter/CReceivedSentence.h"

#include <cstdint>
#include <cstring>

#include "layers/adapter/Talkers.h"

namespace adapter
{

namespace
{

constexpr std::size_t SHORTEST = 9; // "$", address and checksum: less is no sentence
constexpr char DIGITS[] = "0123456789ABCDEF";
constexpr char SMALL_DIGITS[] = "0123456789abcdef";

bool IsDigit(char digit, unsigned value) noexcept
{
    return digit == DIGITS[value] || digit == SMALL_DIGITS[value];
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
    : text(text), kind(KindOf(talkers)), type(TypeOf())
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

bool CReceivedSentence::SmallDigits(std::string_view body) const noexcept
{
    const std::size_t digits = body.size() + 2; // behind "$" and "*"
    return text[digits] >= 'a' || text[digits + 1] >= 'a';
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
    constexpr char NAMES[][4] = {"GGA", "GLL", "GNS", "GSA", "GSV", "RMC", "VTG", "ZDA"}; // as numbered
    if (text.size() < SHORTEST) {
        return TYPE_OTHER;
    }
    int type = 0;
    for (const auto& name : NAMES) {
        if (text[3] == name[0] && text[4] == name[1] && text[5] == name[2]) {
            break;
        }
        ++type;
    }
    return static_cast<SENTENCETYPE>(type);
}

std::string_view CReceivedSentence::Body() const noexcept
{
    const std::size_t asterisk = text.find('*');
    if (asterisk == std::string_view::npos || asterisk < 6 || asterisk + 2 >= text.size()) {
        return {};
    }
    const std::string_view body(text.data() + 1, asterisk - 1);
    const unsigned sum = ChecksumOf(body);
    const bool right = IsDigit(text[asterisk + 1], sum / 16) && IsDigit(text[asterisk + 2], sum % 16) &&
                       std::memchr(body.data(), '\0', body.size()) == nullptr;
    return right ? body : std::string_view();
}

} // namespace adapter
