// Talkers.h: the talkers that are taken for GPS.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "GpsLib/contracts/KestApi.h"

namespace adapter
{

/// A set of two-letter talkers, of fixed size. GP is always taken and needn't be in it.
class KEST_API Talkers
{
public:
    static constexpr std::size_t MOST = 16;

    /// GN, which combines systems, and the systems' own: GL, GA, GB, BD, GQ, QZ, GI.
    Talkers() noexcept;

    /// Leaves GP alone.
    void Clear() noexcept { count = 0; }
    /// talker: two capital letters or digits.
    /// Result: false when it is anything else, or when MOST talkers are there.
    bool Add(std::string_view talker) noexcept;
    bool Has(std::string_view talker) const noexcept;

private:
    std::array<std::array<char, 2>, MOST> names{};
    std::size_t count = 0;
};

} // namespace adapter
