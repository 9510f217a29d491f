#include "tools/options/OptionChecks.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <string>
#include <system_error>

namespace kestgps
{

namespace
{

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

/// Drops what changes nothing; a whole number with a zero in front would be read as octal.
void Simplify(std::string& text)
{
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') {
        text.erase(0, 1);
    }
    while (text.size() > 1 && text[0] == '0' && IsDigit(text[1])) {
        text.erase(0, 1);
    }
}

/// Simplifies the text. Result: whether it is a decimal number in that range and nothing else.
bool IsWithin(std::string& text, double least, double most)
{
    Simplify(text);
    const char* const end = text.data() + text.size();
    double value = 0.0;
    const std::from_chars_result read = std::from_chars(text.data(), end, value);
    return read.ec == std::errc() && read.ptr == end && value >= least && value <= most; // false for a NaN
}

/// As few digits as tell the number.
std::string RangeText(double bound)
{
    char digits[32];
    return {digits, std::to_chars(digits, std::end(digits), bound, std::chars_format::fixed).ptr};
}

} // namespace

CLI::Validator Within(double least, double most)
{
    const std::string range = RangeText(least) + " to " + RangeText(most);
    return CLI::Validator(
        [least, most, range](std::string& text) {
            const bool fits = IsWithin(text, least, most);
            return fits ? std::string() : "\"" + text + "\" is not a number from " + range;
        },
        range);
}

CLI::Validator AtMostDecimals(std::size_t most)
{
    return CLI::Validator(
        [most](const std::string& text) {
            const std::size_t point = std::min(text.find('.'), text.size() - 1);
            const bool fits = text.find_first_not_of("+.0123456789") == std::string::npos &&
                              text.size() - 1 - point <= most;
            return fits ? std::string()
                        : "\"" + text + "\" is not written out with at most " + std::to_string(most) +
                              " digits behind the point";
        },
        "");
}

CLI::Validator FileName()
{
    return CLI::Validator(
        [](const std::string& name) {
            return name.empty() ? std::string("the name is empty") : std::string();
        },
        "");
}

} // namespace kestgps
