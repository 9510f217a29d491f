// AngleOf.h: the angle of a direction, with the same bits on every processor.
//
// The platform's arc tangent differs in the last bit from one processor to the next, since some of its
// versions use fused multiply-adds. This one carries twice the digits and rounds once: it is the correctly
// rounded value but for about one direction in a thousand, where it is the neighbour.
#pragma once

#include <cmath>

#include "GpsLib/math/Pair.h"

namespace GPS
{

namespace angle
{

/// The arc tangents of 0/16, 1/16 up to 16/16.
constexpr Pair ARC_TANGENTS[] = {
    {0.0, 0.0},
    {0.06241880999595735, -1.5490756308295046e-18},
    {0.12435499454676144, -3.1253241424539383e-18},
    {0.18534794999569476, 4.180692268843079e-18},
    {0.24497866312686414, 1.0698755618734451e-17},
    {0.3028848683749714, -1.1010827903001369e-17},
    {0.35877067027057225, -2.4623815582638635e-17},
    {0.4124104415973873, -1.587652227770689e-17},
    {0.4636476090008061, 2.2698777452961687e-17},
    {0.5123894603107377, -2.5462781472855804e-17},
    {0.5585993153435624, -5.4556305485916264e-18},
    {0.6022873461349642, 2.950430737228402e-17},
    {0.6435011087932844, 1.5834785051444286e-17},
    {0.6823165548747481, 6.943223671560008e-18},
    {0.7188299996216245, -2.1478388444456983e-17},
    {0.7531512809621944, -2.4256934659182068e-17},
    {0.7853981633974483, 3.061616997868383e-17},
};
constexpr double ARC_TANGENT_STEPS = 16.0;
constexpr Pair HALF_PI{1.5707963267948966, 6.123233995736766e-17};
constexpr Pair PI{3.141592653589793, 1.2246467991473532e-16};

/// The Taylor series of the arc tangent behind its first term; the argument is at most 1/32.
constexpr double TAIL[] = {1.0 / 13.0, -1.0 / 11.0, 1.0 / 9.0, -1.0 / 7.0, 1.0 / 5.0, -1.0 / 3.0};

/// Legs whose products, and what these lose by rounding, are neither too large nor too small for a double.
constexpr double LEG_MIN = 1e-130;
constexpr double LEG_MAX = 1e130;

inline bool IsWithin(double leg) noexcept
{
    return leg >= LEG_MIN && leg <= LEG_MAX;
}

/// Result: the arc tangent of opposite / adjacent, which is at most 1. The nearest sixteenth s is taken away
/// first: arctan t = arctan s + arctan((t - s) / (1 + s t)).
inline Pair ArcTangent(double opposite, double adjacent) noexcept
{
    const double sixteenths = std::floor(opposite / adjacent * ARC_TANGENT_STEPS + 0.5);
    const double s = sixteenths / ARC_TANGENT_STEPS;
    const Pair rest =
        (Pair{opposite, 0.0} - Product(s, adjacent)) / (Pair{adjacent, 0.0} + Product(s, opposite));
    const double square = rest.high * rest.high;
    const double tail = rest.high * (square * Polynomial(TAIL, square));
    return ARC_TANGENTS[static_cast<int>(sixteenths)] + Pair{rest.high, rest.low + tail};
}

} // namespace angle

/// The angle of the direction (x, y), counter-clockwise from the x axis, as `atan2` has it.
/// Result: [rad] from -pi to pi. Along an axis, and for legs too large, too small or no numbers, the
/// platform's own.
inline double AngleOf(double y, double x) noexcept
{
    const double height = std::fabs(y);
    const double width = std::fabs(x);
    if (!angle::IsWithin(height) || !angle::IsWithin(width)) {
        return std::atan2(y, x);
    }
    Pair turn = height <= width ? angle::ArcTangent(height, width)
                                : angle::HALF_PI - angle::ArcTangent(width, height);
    if (x < 0.0) {
        turn = angle::PI - turn;
    }
    return std::copysign(turn.high, y);
}

} // namespace GPS
