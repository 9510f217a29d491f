// CInput.h: values from the front of a fuzzer's input, so that a seed can be written down by hand.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string_view>

/// Whatever is missing reads as zero.
class CInput
{
public:
    /// data: borrowed.
    CInput(const std::uint8_t* data, std::size_t size) noexcept
        : left(reinterpret_cast<const char*>(data), size)
    {
    }

    bool Empty() const noexcept { return left.empty(); }

    std::uint8_t Byte() noexcept { return Value<std::uint8_t>(); }
    std::int8_t Small() noexcept { return Value<std::int8_t>(); }
    /// Any bits at all: infinities, NaN, subnormal numbers.
    double AnyDouble() noexcept { return Value<double>(); }

    /// Result: a number strictly between the two, up to their very neighbours.
    double Between(double low, double high) noexcept
    {
        constexpr double STEPS = std::numeric_limits<std::uint32_t>::max();
        const double share = Value<std::uint32_t>() / STEPS;
        return std::clamp(low + (high - low) * share, std::nextafter(low, high), std::nextafter(high, low));
    }

    /// Result: the next bytes, as many as there are up to `count`.
    std::string_view Bytes(std::size_t count) noexcept
    {
        const std::string_view taken = left.substr(0, count);
        left.remove_prefix(taken.size());
        return taken;
    }

    /// Result: the bytes up to a stop byte, which is taken too but not given.
    std::string_view UpTo(char stop) noexcept
    {
        const std::string_view taken = Bytes(std::min(left.find(stop), left.size()));
        Bytes(1);
        return taken;
    }

private:
    template <class VALUE>
    VALUE Value() noexcept
    {
        VALUE value{};
        const std::string_view bytes = Bytes(sizeof value);
        if (!bytes.empty()) {
            std::memcpy(&value, bytes.data(), bytes.size());
        }
        return value;
    }

    std::string_view left; // borrowed
};
