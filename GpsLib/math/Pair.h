// Pair.h: arithmetic with twice the digits of a double.
//
// Sums and products of doubles alone make it up, so its bits are the same on every processor, as long as none
// is fused with another.
#pragma once

#include <cstddef>

namespace GPS
{

/// A number as the unevaluated sum of two doubles, the second at most half a last bit of the first.
struct Pair {
    double high;
    double low;
};

/// a + b exactly; |a| not below |b|. (T. J. Dekker, A floating-point technique for extending the available
/// precision, 1971)
constexpr Pair SumOfOrdered(double a, double b) noexcept
{
    const double sum = a + b;
    return {sum, b - (sum - a)};
}

/// a + b exactly. (D. E. Knuth, The Art of Computer Programming, volume 2, 4.2.2)
constexpr Pair Sum(double a, double b) noexcept
{
    const double sum = a + b;
    const double part = sum - a;
    return {sum, (a - (sum - part)) + (b - part)};
}

/// The upper half of a double's digits. (Veltkamp's splitting, in Dekker 1971)
constexpr double UpperHalf(double a) noexcept
{
    const double scaled = a * 134217729.0; // 2^27 + 1
    return scaled - (scaled - a);
}

/// a * b exactly. (Dekker 1971)
constexpr Pair Product(double a, double b) noexcept
{
    const double product = a * b;
    const double upperA = UpperHalf(a);
    const double upperB = UpperHalf(b);
    const double lowerA = a - upperA;
    const double lowerB = b - upperB;
    return {product, ((upperA * upperB - product) + upperA * lowerB + lowerA * upperB) + lowerA * lowerB};
}

constexpr Pair operator+(Pair a, Pair b) noexcept
{
    const Pair sum = Sum(a.high, b.high);
    return SumOfOrdered(sum.high, sum.low + (a.low + b.low));
}

constexpr Pair operator-(Pair a, Pair b) noexcept
{
    return a + Pair{-b.high, -b.low};
}

constexpr Pair operator*(Pair a, Pair b) noexcept
{
    const Pair product = Product(a.high, b.high);
    return SumOfOrdered(product.high, product.low + (a.high * b.low + a.low * b.high));
}

constexpr Pair operator/(Pair a, Pair b) noexcept
{
    const double quotient = a.high / b.high;
    const Pair product = Product(quotient, b.high);
    const double rest = ((a.high - product.high) - product.low) + (a.low - quotient * b.low);
    return SumOfOrdered(quotient, rest / b.high);
}

/// A polynomial by Horner's rule, the highest coefficient first.
template <std::size_t COUNT>
constexpr double Polynomial(const double (&coefficients)[COUNT], double z) noexcept
{
    double value = coefficients[0];
    for (std::size_t i = 1; i < COUNT; ++i) {
        value = value * z + coefficients[i];
    }
    return value;
}

} // namespace GPS
