// Text to numbers: the decimal conversions of the "C" locale, whatever locale the program has.
#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <limits>
#include <locale>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "GpsLib/nmea/FieldConversions.h"

namespace
{

std::uint64_t BitsOf(double value)
{
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

// Between blanks.
constexpr const char* DECIMAL_TEXTS =
    "0 -0 +0 7 007 12.5 -12.5 +12.5 --1 +-1 . -. -.5 .5 5. +.e3 e5 1e 1e+ 1e-x 1.e2 1E3 1e5,7 12.5*4C *4C ,5 "
    "1..2 1.2.3 x1 1_000 1'000 1,5 9007199254740992 9007199254740993 9007199254740993.5 "
    "9007199254740992.9999999999999 18446744073709551615 18446744073709551616 123456789012345678901234 1e22 "
    "1e23 9007199254740993e22 1e-22 1e-23 0.1 0.30000000000000004 2.2250738585072011e-308 "
    "2.2250738585072014e-308 4.9e-324 2.4703282292062327e-324 2.4703282292062328e-324 1e-400 -1e-400 "
    "1.7976931348623158e308 1.7976931348623159e308 1e308 1e309 -1e309 1e99999999999 1e-99999999999 "
    "0e99999999999 0e-99999999999 0.0e400 2147483647 2147483648 -2147483648 -2147483649 4294967297 "
    "-4294967297 99999999999999999999 -99999999999999999999";

/// Texts that strtod and strtol in the "C" locale read as decimal numbers.
std::vector<std::string> DecimalTexts()
{
    const std::string noughts(400, '0');
    std::vector<std::string> texts{"",
                                   " \t\n\v\f\r12.5",
                                   "1 2",
                                   "- 1",
                                   std::string(400, '9') + "e-400",
                                   std::string(400, '9'),
                                   "0." + noughts + "7e400",
                                   noughts + "42",
                                   "1" + noughts + ".7e-300",
                                   "1." + noughts + "1"};
    std::istringstream words(DECIMAL_TEXTS);
    texts.insert(texts.end(), std::istream_iterator<std::string>(words), {});
    std::mt19937 random(19840106); // NOLINT(cert-msc32-c,cert-msc51-cpp): a run that can be repeated
    const auto below = [&random](unsigned limit) { return static_cast<unsigned>(random()) % limit; };
    const auto digits = [&below](std::string& text, unsigned count) {
        for (; count > 0; --count) {
            text += static_cast<char>('0' + below(10));
        }
    };
    for (int i = 0; i < 20000; ++i) {
        std::string text = std::string(below(2), ' ') + (below(3) == 0 ? "-" : "");
        digits(text, below(below(8) == 0 ? 30 : 8));
        if (below(4) != 0) {
            text += '.';
            digits(text, below(below(8) == 0 ? 30 : 8));
        }
        if (below(3) == 0) {
            text += (below(2) == 0 ? "e" : "E-") + std::to_string(below(below(2) == 0 ? 340 : 30));
        }
        constexpr const char* TAILS[] = {"", ",", "*4C", "e", ".", "-", "+1", "N", " 1"};
        texts.push_back(text + TAILS[below(std::size(TAILS))]);
    }
    return texts;
}

struct Number {
    std::string text;
    double real;
    int whole;
};

/// Worked out by the C library, so to be called while its locale is "C".
std::vector<Number> Numbers()
{
    std::vector<Number> numbers;
    for (std::string& text : DecimalTexts()) {
        const double real = std::strtod(text.c_str(), nullptr);
        const long long whole = std::strtoll(text.c_str(), nullptr, 10);
        constexpr long long MIN = std::numeric_limits<int>::min();
        constexpr long long MAX = std::numeric_limits<int>::max();
        numbers.push_back({std::move(text), real,
                           static_cast<int>(whole < MIN   ? MIN
                                            : whole > MAX ? MAX
                                                          : whole)});
    }
    return numbers;
}

void ExpectAlike(const std::vector<Number>& numbers)
{
    for (const Number& number : numbers) {
        EXPECT_EQ(BitsOf(ToDouble(number.text.c_str())), BitsOf(number.real)) << '"' << number.text << '"';
        EXPECT_EQ(ToInt(number.text.c_str()), number.whole) << '"' << number.text << '"';
    }
}

TEST(FieldConversions, AgreeWithTheCLibraryToTheBit)
{
    ExpectAlike(Numbers());
}

/// Numbers with a comma for the point and dots between thousands, as in much of Europe.
struct CommaPoint : std::numpunct<char> {
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(FieldConversions, AreAlikeUnderEveryLocale)
{
    const std::vector<Number> numbers = Numbers();
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new CommaPoint));
    ExpectAlike(numbers);
    std::locale::global(before);
    for (const char* const name : {"de_DE.UTF-8", "fr_FR.UTF-8", "ru_RU.UTF-8", "C"}) {
        // NOLINTNEXTLINE(concurrency-mt-unsafe): the tests have one thread
        if (std::setlocale(LC_ALL, name) != nullptr) { // as installed; the facet above is always there
            ExpectAlike(numbers);
        }
    }
}

TEST(FieldConversions, KnowDecimalTextAlone)
{
    for (const char* const text :
         {"0x1A", "0x", "inf", "-infinity", "nan", "NAN(1)", "\xB2", "\xFF", "\2405"}) {
        EXPECT_EQ(ToDouble(text), 0.0) << text;
        EXPECT_EQ(ToInt(text), 0) << text;
    }
    EXPECT_EQ(ToDouble("1\xB2"), 1.0);
    EXPECT_EQ(ToInt("1\xB2"), 1);
    EXPECT_EQ(ToDouble("12.5e2e3"), 1250.0);
}

TEST(FieldConversions, DigitsAreDistancesFromZeroOfUnsignedBytes)
{
    EXPECT_EQ(TwoDigits('4', '2'), 42);
    EXPECT_EQ(TwoDigits(0x80, 0xFF), 80 * 10 + 207);
    EXPECT_EQ(TwoDigits(0, '/'), -480 - 1);
}

} // namespace
