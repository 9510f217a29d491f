// Text to numbers: the decimal conversions of the "C" locale, whatever locale the program has.
#include <algorithm>
#include <clocale>
#include <cmath>
#include <cstdlib>
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
    const std::string nines(400, '9');
    const std::string noughts(400, '0');
    std::vector<std::string> texts{"",
                                   "1 2",
                                   "- 1",
                                   " \t\n\v\f\r12.5",
                                   nines,
                                   nines + "e-400",
                                   "0." + noughts + "7e400",
                                   noughts + "42",
                                   "1" + noughts + ".7e-300",
                                   "1." + noughts + "1"};
    std::istringstream words(DECIMAL_TEXTS);
    texts.insert(texts.end(), std::istream_iterator<std::string>(words), {});
    std::mt19937 random(19840106); // NOLINT(cert-msc32-c,cert-msc51-cpp): a run that can be repeated
    const auto below = [&random](unsigned limit) { return static_cast<unsigned>(random()) % limit; };
    const auto digits = [&below] { // mostly as many as a receiver sends
        std::string text;
        for (unsigned count = below(below(8) == 0 ? 30 : 8); count > 0; --count) {
            text += std::to_string(below(10));
        }
        return text;
    };
    for (int i = 0; i < 20000; ++i) {
        constexpr const char* POINTS[] = {"", ".", ".", "."};
        constexpr const char* TAILS[] = {"",  ",",  "*4C", "e",    ".",    "-",    "+1",
                                         "N", " 1", "e25", "E-25", "e300", "E-300"};
        texts.push_back((below(3) == 0 ? " -" : "") + digits() + POINTS[below(4)] + digits() +
                        TAILS[below(std::size(TAILS))]);
    }
    return texts;
}

struct Number {
    std::string text;
    double real;
    long long whole;
};

/// Worked out by the C library, so to be called while its locale is "C".
std::vector<Number> Numbers()
{
    constexpr long long MIN = std::numeric_limits<int>::min();
    constexpr long long MAX = std::numeric_limits<int>::max();
    std::vector<Number> numbers;
    for (const std::string& text : DecimalTexts()) {
        numbers.push_back({text, std::strtod(text.c_str(), nullptr),
                           std::clamp(std::strtoll(text.c_str(), nullptr, 10), MIN, MAX)});
    }
    return numbers;
}

void ExpectAlike(const std::vector<Number>& numbers)
{
    for (const Number& number : numbers) {
        const double real = ToDouble(number.text.c_str());
        EXPECT_EQ(real, number.real) << '"' << number.text << '"';
        EXPECT_EQ(std::signbit(real), std::signbit(number.real)) << '"' << number.text << '"'; // of zero too
        EXPECT_EQ(ToInt(number.text.c_str()), number.whole) << '"' << number.text << '"';
    }
}

/// Numbers with a comma for the point and dots between thousands, as in much of Europe.
struct CommaPoint : std::numpunct<char> {
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(FieldConversions, AgreeWithTheCLibraryToTheBitUnderEveryLocale)
{
    const std::vector<Number> numbers = Numbers();
    ExpectAlike(numbers);
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

} // namespace
