// DecimalText.h: numbers as decimal text, alike under every locale.
#pragma once

#include <cstdint>
#include <string>

namespace kestgps
{

/// A number that has been multiplied by 10 to the power of `decimals`: 1234 with 2 decimals is "12.34".
/// digits: the least number of digits before the point; zeros fill up.
std::string ScaledText(std::int64_t scaled, int decimals, int digits = 1);

/// Rounds to nearest, halves away from zero. Never "-0.0".
/// value: held to 1e9 on either side; what is no number counts as 0. decimals: 0 to 9.
std::string DecimalText(double value, int decimals);

/// Result: value times 10 to the power of `decimals` as DecimalText rounds it.
std::int64_t Scaled(double value, int decimals) noexcept;

} // namespace kestgps
