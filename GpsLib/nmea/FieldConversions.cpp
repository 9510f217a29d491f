#include "GpsLib/nmea/FieldConversions.h"

#include <charconv>
#include <limits>

namespace
{

/// The number that a digit stands for; more than 9 for any other character.
constexpr unsigned Digit(char character) noexcept
{
    return static_cast<unsigned>(DigitValue(static_cast<unsigned char>(character)));
}

constexpr bool IsDigit(char character) noexcept
{
    return Digit(character) <= 9;
}

constexpr bool IsSpace(char character) noexcept
{
    return character == ' ' || (character >= '\t' && character <= '\r');
}

/// Steps over a sign.
/// Result: true when it was a minus.
bool TakeSign(const char*& text) noexcept
{
    const bool negative = *text == '-';
    if (negative || *text == '+') {
        ++text;
    }
    return negative;
}

/// Steps over white space and a sign, of which there mostly is none.
/// Result: true when the sign was a minus.
bool TakeSpaceAndSign(const char*& text) noexcept
{
    if (IsDigit(*text)) {
        return false;
    }
    while (IsSpace(*text)) {
        ++text;
    }
    return TakeSign(text);
}

// Powers of ten that a double holds exactly.
constexpr double EXACT_POWERS[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                   1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int EXACT_POWER_MAX = 22;
constexpr std::uint64_t EXACT_INTEGER_MAX = std::uint64_t{1} << 53; // every integer up to here is a double
constexpr std::uint64_t MANTISSA_ROOM = (std::numeric_limits<std::uint64_t>::max() - 9) / 10;
static_assert(MANTISSA_ROOM > EXACT_INTEGER_MAX, "a mantissa with digits left out must not count as exact");
constexpr int EXPONENT_LIMIT = 100000; // far beyond what a double reaches, far within int

/// An unsigned decimal number taken apart: mantissa * 10^exponent, but for digits that found no room.
struct DecimalText {
    const char* begin;
    const char* end;
    std::uint64_t mantissa = 0;
    int exponent = 0;
    bool anyDigit = false;

    explicit DecimalText(const char* text) noexcept : begin(text), end(text)
    {
        TakeDigits(0);
        if (*end == '.') {
            ++end;
            TakeDigits(-1);
        }
        if (anyDigit) {
            TakeExponent();
        }
    }

private:
    /// step: what a digit that fits adds to the exponent, 0 before the point and -1 behind it.
    void TakeDigits(int step) noexcept
    {
        for (; IsDigit(*end); ++end) {
            anyDigit = true;
            if (mantissa <= MANTISSA_ROOM) {
                mantissa = mantissa * 10 + Digit(*end);
                exponent += step;
            } else {
                exponent += step + 1;
            }
        }
    }

    void TakeExponent() noexcept
    {
        if (*end != 'e' && *end != 'E') {
            return;
        }
        const char* digits = end + 1;
        const bool negative = TakeSign(digits);
        if (!IsDigit(*digits)) {
            return; // an "e" alone doesn't belong to the number
        }
        int value = 0;
        for (; IsDigit(*digits); ++digits) {
            if (value < EXPONENT_LIMIT) {
                value = value * 10 + (*digits - '0');
            }
        }
        exponent += negative ? -value : value;
        end = digits;
    }
};

/// Numbers of any length and size, correctly rounded.
double ToDoubleSlowly(const DecimalText& number) noexcept
{
    double value = 0.0;
    const auto result = std::from_chars(number.begin, number.end, value);
    if (result.ec == std::errc::result_out_of_range) {
        // Too large and too small look alike; a double spans about 10^-324 to 10^308, so the sign of the
        // exponent tells them apart: the mantissa moves it by less than 20.
        value = number.exponent > 0 ? std::numeric_limits<double>::infinity() : 0.0;
    }
    return value;
}

} // namespace

double TakeDouble(const char*& text) noexcept
{
    const bool negative = TakeSpaceAndSign(text);
    const DecimalText number(text);
    text = number.end;
    if (!number.anyDigit) {
        return 0.0;
    }
    double value = 0.0;
    if (number.mantissa <= EXACT_INTEGER_MAX && number.exponent >= -EXACT_POWER_MAX &&
        number.exponent <= EXACT_POWER_MAX) {
        // Both operands are exact, so the one operation rounds once, and correctly.
        const auto mantissa = static_cast<double>(number.mantissa);
        value = number.exponent < 0 ? mantissa / EXACT_POWERS[-number.exponent]
                                    : mantissa * EXACT_POWERS[number.exponent];
    } else {
        value = ToDoubleSlowly(number);
    }
    return negative ? -value : value;
}

double ToDouble(const char* text) noexcept
{
    return TakeDouble(text);
}

int TakeInt(const char*& text) noexcept
{
    constexpr int MIN = std::numeric_limits<int>::min();
    constexpr unsigned MAX = std::numeric_limits<int>::max();
    const bool negative = TakeSpaceAndSign(text);
    std::uint64_t value = 0;
    for (; IsDigit(*text); ++text) {
        if (value <= MAX) { // beyond it further digits change nothing
            value = value * 10 + Digit(*text);
        }
    }
    if (value > MAX) {
        return negative ? MIN : static_cast<int>(MAX);
    }
    const auto magnitude = static_cast<int>(value);
    return negative ? -magnitude : magnitude;
}

int ToInt(const char* text) noexcept
{
    return TakeInt(text);
}
