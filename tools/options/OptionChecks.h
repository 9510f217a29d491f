// OptionChecks.h: what a command line accepts as the value of an option.
#pragma once

#include <CLI/CLI.hpp>

namespace kestgps
{

/// Accepts decimal numbers from `least` to `most`, both included. For an option's `transform`, since it drops
/// a plus sign and zeros in front.
CLI::Validator Within(double least, double most);

/// Accepts numbers that are written out with at most so many digits behind the point.
CLI::Validator AtMostDecimals(std::size_t most);

/// Refuses an empty name, which would count as none.
CLI::Validator FileName();

// Ranges that several commands share.
constexpr double BAUD_LEAST = 50;       // [bit/s]
constexpr double BAUD_MOST = 4000000;   // [bit/s]
constexpr double FACTOR_LEAST = 0.01;   // a second takes at most 100
constexpr double FACTOR_MOST = 1000000; // in effect as fast as it goes

} // namespace kestgps
