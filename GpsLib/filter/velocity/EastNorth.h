// EastNorth.h: a vector in the plane of the ground.
#pragma once

namespace GPS
{

/// A way [m], a velocity [m/s], or a change of one.
struct EastNorth {
    double east = 0.0;
    double north = 0.0;
};

constexpr EastNorth operator+(EastNorth a, EastNorth b) noexcept
{
    return {a.east + b.east, a.north + b.north};
}

constexpr EastNorth operator-(EastNorth a, EastNorth b) noexcept
{
    return {a.east - b.east, a.north - b.north};
}

constexpr EastNorth operator*(double factor, EastNorth a) noexcept
{
    return {factor * a.east, factor * a.north};
}

constexpr EastNorth operator/(EastNorth a, double divisor) noexcept
{
    return {a.east / divisor, a.north / divisor};
}

/// The scalar product.
constexpr double Dot(EastNorth a, EastNorth b) noexcept
{
    return a.east * b.east + a.north * b.north;
}

/// The squared length.
constexpr double Square(EastNorth a) noexcept
{
    return Dot(a, a);
}

} // namespace GPS
