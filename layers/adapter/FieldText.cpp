#include "layers/adapter/FieldText.h"

#include <algorithm>

namespace adapter
{

namespace
{

bool IsDigit(char letter) noexcept
{
    return letter >= '0' && letter <= '9';
}

bool AreDigits(std::string_view text) noexcept
{
    return std::all_of(text.begin(), text.end(), IsDigit);
}

} // namespace

std::string_view FieldOf(std::string_view body, std::size_t number) noexcept
{
    const char* begin = body.data();
    const char* const end = begin + body.size();
    for (; number > 0; --number) {
        begin = std::find(begin, end, ',');
        if (begin == end) {
            return {};
        }
        ++begin;
    }
    return {begin, static_cast<std::size_t>(std::find(begin, end, ',') - begin)};
}

CTimeText::CTimeText(std::string_view field) noexcept
{
    constexpr std::size_t DIGITS = 6;
    const bool decimals = field.size() > DIGITS;
    if (field.size() < DIGITS || !AreDigits(field.substr(0, DIGITS)) ||
        (decimals && (field[DIGITS] != '.' || !AreDigits(field.substr(DIGITS + 1))))) {
        return;
    }
    const std::string_view time = WithoutLastZeros(field.substr(0, text.size()));
    std::copy(time.begin(), time.end(), text.begin());
    length = time.size();
}

bool CTimeText::SameAs(const CTimeText& other) const noexcept
{
    return Known() &&
           std::string_view(text.data(), length) == std::string_view(other.text.data(), other.length);
}

std::string_view TwoDigits(int number) noexcept
{
    static constexpr char TEXTS[] = "000102030405060708091011121314151617181920212223242526272829"
                                    "303132333435363738394041424344454647484950515253545556575859"
                                    "6061626364";
    return std::string_view(TEXTS).substr(2 * static_cast<std::size_t>(number), 2);
}

std::size_t Decimals(std::string_view field) noexcept
{
    const std::size_t point = field.find('.');
    return point == std::string_view::npos ? 0 : field.size() - point - 1;
}

std::string_view WithoutDecimals(std::string_view field) noexcept
{
    return field.substr(0, field.find('.'));
}

std::string_view WithoutLastZeros(std::string_view field) noexcept
{
    if (field.find('.') == std::string_view::npos) {
        return field;
    }
    while (field.back() == '0') {
        field.remove_suffix(1);
    }
    if (field.back() == '.') {
        field.remove_suffix(1);
    }
    return field;
}

} // namespace adapter
