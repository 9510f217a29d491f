// Require.h: rules that hold whatever the input; a breach is a finding like any crash.
#pragma once

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>

/// Ends the run with a message when a rule is broken; the fuzzer then keeps the input.
inline void Require(bool holds, const char* rule)
{
    if (!holds) {
        static_cast<void>(std::fprintf(stderr, "rule broken: %s\n", rule));
        std::abort();
    }
}

/// The bytes of a plain record, padding included, to be compared: two NaN may be the same, -0.0 and 0.0 are
/// not.
template <class RECORD>
std::array<unsigned char, sizeof(RECORD)> BytesOf(const RECORD& record) noexcept
{
    std::array<unsigned char, sizeof(RECORD)> bytes;
    std::memcpy(bytes.data(), &record, sizeof record);
    return bytes;
}
