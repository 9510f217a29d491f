// Dice.h: random numbers with the same bits on every machine; the distributions of <random> are each
// library's own.
#pragma once

#include <cstdint>
#include <random>
#include <string>

namespace study
{

class Dice
{
public:
    /// A row of numbers of its own for each name, so that one part of the study doesn't change another's.
    explicit Dice(const std::string& name);

    /// Result: from 0 to below 1.
    double Uniform() noexcept;
    double Between(double low, double high) noexcept;
    /// Result: from low to high, each factor as likely as any other. low: above 0.
    double Scale(double low, double high) noexcept;
    /// Result: true in that share of the throws.
    bool Once(double share) noexcept;
    /// Normal distribution, mean 0, deviation 1.
    double Gauss() noexcept;

private:
    double Exponential() noexcept;

    std::mt19937_64 bits;
    double spare = 0.0; // the second one of a pair
    bool hasSpare = false;
};

} // namespace study
