// SinCos.h: sine and cosine with the same bits on every processor.
//
// The platform's differ in the last bit from one processor to the next, since some of its versions use fused
// multiply-adds, and the filter magnifies a last bit where fixes jump. These use sums and products of doubles
// alone, carry twice the digits, and round once: they are the correctly rounded values but for about one
// argument in a thousand, where they are the neighbour.
#pragma once

#include <cmath>

#include "GpsLib/math/Pair.h"

namespace GPS
{

/// Both functions of one angle.
struct SinCos {
    double sine;
    double cosine;
};

namespace sincos
{

// Half of pi in four parts; the first three have 33 bits, so that their products with a whole number up to
// 2^20 are exact.
constexpr double HALF_PI[] = {1.57079632673412561417, 6.07710050630396597660e-11, 2.02226624871116645580e-21,
                              8.47842766036889956997e-32};
constexpr double QUARTERS_A_RADIAN = 0.63661977236758138243; // 2 / pi
constexpr double QUARTERS_MOST = 1048576.0;                  // 2^20

/// The angle less so many quarter turns, which leaves at most an eighth of a turn.
constexpr Pair Rest(double angle, double quarters) noexcept
{
    Pair rest = Sum(angle, -(quarters * HALF_PI[0]));
    rest = rest + Pair{-(quarters * HALF_PI[1]), 0.0};
    return rest + Pair{-(quarters * HALF_PI[2]), -(quarters * HALF_PI[3])};
}

// The Taylor series. Their first terms need both doubles of a pair, their tails one.
constexpr double SINE_TAIL[] = {1.0 / 51090942171709440000.0,
                                -1.0 / 121645100408832000.0,
                                1.0 / 355687428096000.0,
                                -1.0 / 1307674368000.0,
                                1.0 / 6227020800.0,
                                -1.0 / 39916800.0,
                                1.0 / 362880.0,
                                -1.0 / 5040.0};                      // 1/21! down to 1/7!
constexpr Pair SINE_5{0.008333333333333333, 1.1564823173178714e-19}; // 1/5!
constexpr Pair SINE_3{-0.16666666666666666, -9.25185853854297e-18};  // -1/3!
constexpr double COSINE_TAIL[] = {1.0 / 2432902008176640000.0,
                                  -1.0 / 6402373705728000.0,
                                  1.0 / 20922789888000.0,
                                  -1.0 / 87178291200.0,
                                  1.0 / 479001600.0,
                                  -1.0 / 3628800.0,
                                  1.0 / 40320.0,
                                  -1.0 / 720.0};                       // 1/20! down to 1/6!
constexpr Pair COSINE_4{0.041666666666666664, 2.3129646346357427e-18}; // 1/4!
constexpr Pair COSINE_2{-0.5, 0.0};                                    // -1/2!

constexpr double SineOf(Pair rest, Pair square) noexcept
{
    const Pair fifth = SINE_5 + Product(square.high, Polynomial(SINE_TAIL, square.high));
    const Pair third = SINE_3 + square * fifth;
    return (rest + rest * (square * third)).high;
}

constexpr double CosineOf(Pair square) noexcept
{
    const Pair fourth = COSINE_4 + Product(square.high, Polynomial(COSINE_TAIL, square.high));
    const Pair second = COSINE_2 + square * fourth;
    return (Pair{1.0, 0.0} + square * second).high;
}

/// Turns the functions of what is left of an angle into those of the angle.
constexpr SinCos Turned(SinCos rest, double quarters) noexcept
{
    switch (static_cast<int>(quarters) & 3) {
    case 0:
        return rest;
    case 1:
        return {rest.cosine, -rest.sine};
    case 2:
        return {-rest.sine, -rest.cosine};
    default:
        return {-rest.cosine, rest.sine};
    }
}

/// Result: whether an angle of so many quarter turns is too large for Rest, or no number.
inline bool IsBeyond(double quarters) noexcept
{
    return !(std::fabs(quarters) <= QUARTERS_MOST);
}

/// Result: the whole number of quarter turns nearest to an angle [rad].
inline double QuartersOf(double angle) noexcept
{
    return std::floor(angle * QUARTERS_A_RADIAN + 0.5);
}

} // namespace sincos

/// angle: [rad]. Beyond about 1.6 million radians, and for what is no number, the platform's own values.
inline SinCos SinCosOf(double angle) noexcept
{
    const double quarters = sincos::QuartersOf(angle);
    if (sincos::IsBeyond(quarters)) {
        return {std::sin(angle), std::cos(angle)};
    }
    const Pair rest = sincos::Rest(angle, quarters);
    const Pair square = rest * rest;
    return sincos::Turned({sincos::SineOf(rest, square), sincos::CosineOf(square)}, quarters);
}

/// The same in single doubles: several times as fast, and up to about 1.5 units in the last place off, where
/// all its roundings fall together. Against 128-bit arithmetic the worst of 111 million angles was 1.46 off:
/// latitudes and headings drawn evenly, the whole range, beside quarter turns, and around odd multiples of
/// pi/4, where it is worst. Of the even ones one value in a thousand was more than 1 off.
inline SinCos QuickSinCosOf(double angle) noexcept
{
    const double quarters = sincos::QuartersOf(angle);
    if (sincos::IsBeyond(quarters)) {
        return {std::sin(angle), std::cos(angle)};
    }
    const Pair rest = sincos::Rest(angle, quarters);
    const double z = rest.high * rest.high;
    const double third =
        sincos::SINE_3.high + z * (sincos::SINE_5.high + z * Polynomial(sincos::SINE_TAIL, z));
    const double second =
        sincos::COSINE_2.high + z * (sincos::COSINE_4.high + z * Polynomial(sincos::COSINE_TAIL, z));
    return sincos::Turned({rest.high + (rest.high * (z * third) + rest.low), 1.0 + z * second}, quarters);
}

} // namespace GPS
