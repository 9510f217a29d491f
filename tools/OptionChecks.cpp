#include "tools/OptionChecks.h"

#include <charconv>
#include <iterator>
#include <string>

namespace kestgps
{

namespace
{

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
            while (text.size() > 1 && text[0] == '0' && text[1] >= '0' && text[1] <= '9') {
                text.erase(0, 1); // else a whole number would be read as octal
            }
            double value = 0.0;
            const bool fits =
                CLI::detail::lexical_cast(text, value) && value >= least && value <= most; // false for a NaN
            return fits ? std::string() : "\"" + text + "\" is not a number from " + range;
        },
        range);
}

} // namespace kestgps
