#include "tools/OptionChecks.h"

#include <string>

#include "tools/DecimalText.h"

namespace kestgps
{

namespace
{

std::string RangeText(double bound)
{
    return bound > 0.0 && bound < 1.0 ? DecimalText(bound, 2) : DecimalText(bound, 0);
}

} // namespace

CLI::Validator Within(double least, double most)
{
    const std::string range = RangeText(least) + " to " + RangeText(most);
    return CLI::Validator(
        [least, most, range](const std::string& text) {
            double value = 0.0;
            const bool fits =
                CLI::detail::lexical_cast(text, value) && value >= least && value <= most; // false for a NaN
            return fits ? std::string() : "\"" + text + "\" is not a number from " + range;
        },
        range);
}

} // namespace kestgps
