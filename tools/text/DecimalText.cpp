#include "tools/text/DecimalText.h"

#include <algorithm>
#include <cmath>

namespace kestgps
{

std::string ScaledText(std::int64_t scaled, int decimals, int digits)
{
    std::string text = std::to_string(scaled < 0 ? -scaled : scaled);
    const auto width = static_cast<std::size_t>(digits) + static_cast<std::size_t>(decimals);
    if (text.size() < width) {
        text.insert(0, width - text.size(), '0');
    }
    if (decimals > 0) {
        text.insert(text.size() - static_cast<std::size_t>(decimals), 1, '.');
    }
    return scaled < 0 ? "-" + text : text;
}

std::string DecimalText(double value, int decimals)
{
    return ScaledText(Scaled(value, decimals), decimals);
}

std::int64_t Scaled(double value, int decimals) noexcept
{
    constexpr double LIMIT = 1e9; // with 9 decimals still inside 64 bits
    if (std::isnan(value)) {
        return 0;
    }
    double factor = 1.0;
    for (int i = 0; i < decimals; ++i) {
        factor *= 10.0;
    }
    return std::llround(std::clamp(value, -LIMIT, LIMIT) * factor);
}

} // namespace kestgps
