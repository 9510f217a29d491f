// FieldText.h: what the adapter reads and cuts in the text of a field.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace adapter
{

/// Result: a field of what stands between "$" and "*"; empty where there is none. number: 0 is the address.
std::string_view FieldOf(std::string_view body, std::size_t number) noexcept;

/// A time of the day as text, to be compared: "101500.00" and "101500" are the same.
class CTimeText
{
public:
    /// No time, which is the same as no other.
    CTimeText() noexcept = default;
    /// field: hhmmss with or without decimals; anything else is no time. Nine decimals count.
    explicit CTimeText(std::string_view field) noexcept;

    bool Known() const noexcept { return length > 0; }
    bool SameAs(const CTimeText& other) const noexcept;

private:
    std::array<char, 16> text{};
    std::size_t length = 0;
};

constexpr int SATELLITE_MOST = 64; // the highest number that has a place in a record

/// Result: the field's number as a parser reads it, four digits of it at most; 0 where there is none.
inline int NumberOf(std::string_view field) noexcept
{
    const auto isDigit = [](char letter) { return letter >= '0' && letter <= '9'; };
    if (field.size() == 2 && isDigit(field[0]) && isDigit(field[1])) { // as nearly every one is
        return (field[0] - '0') * 10 + (field[1] - '0');
    }
    constexpr int MOST = 999;
    std::size_t at = 0;
    while (at < field.size() && field[at] == ' ') {
        ++at;
    }
    int number = 0;
    for (; at < field.size() && isDigit(field[at]) && number <= MOST; ++at) {
        number = number * 10 + (field[at] - '0');
    }
    return number;
}
/// Result: true for 1 to SATELLITE_MOST.
inline bool IsSatellite(std::string_view field) noexcept
{
    const int number = NumberOf(field);
    return number >= 1 && number <= SATELLITE_MOST;
}
/// number: 0 to SATELLITE_MOST. Result: two digits that last.
std::string_view TwoDigits(int number) noexcept;

/// Result: how many characters stand behind the decimal point.
std::size_t Decimals(std::string_view field) noexcept;
/// Result: the field without its decimals and their point.
std::string_view WithoutDecimals(std::string_view field) noexcept;
/// Result: the field without zeros at the end of its decimals, and without the point if none is left.
std::string_view WithoutLastZeros(std::string_view field) noexcept;

} // namespace adapter
