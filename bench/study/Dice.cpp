#include "bench/study/Dice.h"

#include <cmath>

#include "GpsLib/math/SinCos.h"

namespace study
{

namespace
{

constexpr double TURN = 6.283185307179586; // [rad]

/// FNV-1a, 64 bits.
std::uint64_t HashOf(const std::string& name) noexcept
{
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const char letter : name) {
        hash = (hash ^ static_cast<unsigned char>(letter)) * 0x100000001B3;
    }
    return hash;
}

} // namespace

Dice::Dice(const std::string& name) : bits(HashOf(name)) {}

double Dice::Uniform() noexcept
{
    return static_cast<double>(bits() >> 11U) * 0x1p-53;
}

double Dice::Between(double low, double high) noexcept
{
    return low + Uniform() * (high - low);
}

double Dice::Scale(double low, double high) noexcept
{
    return low * std::pow(high / low, Uniform());
}

bool Dice::Once(double share) noexcept
{
    return share > 0.0 && Uniform() < share;
}

/// By comparisons alone (J. von Neumann 1951): numbers fall for a while, and how often tells whether the
/// first of them counts.
double Dice::Exponential() noexcept
{
    double whole = 0.0;
    for (;;) {
        const double first = Uniform();
        double last = first;
        bool odd = true;
        double next = Uniform();
        while (next < last) {
            last = next;
            odd = !odd;
            next = Uniform();
        }
        if (odd) {
            return whole + first;
        }
        whole += 1.0;
    }
}

/// G. Box and M. Muller 1958.
double Dice::Gauss() noexcept
{
    hasSpare = !hasSpare;
    if (!hasSpare) {
        return spare;
    }
    const double radius = std::sqrt(2.0 * Exponential());
    const GPS::SinCos direction = GPS::SinCosOf(TURN * Uniform());
    spare = radius * direction.sine;
    return radius * direction.cosine;
}

} // namespace study
