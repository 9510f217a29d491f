// PlayedCount.h: counts what goes over a line.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kestgps
{

/// Counts bytes and sentences of a stream that comes in pieces. A sentence counts when its address has passed
/// at the start of a line.
class PlayedCount
{
public:
    void Take(std::string_view piece);

    std::size_t Bytes() const noexcept { return bytes; }
    std::size_t Sentences() const noexcept { return sentences; }
    std::size_t Gga() const noexcept { return gga; }

private:
    std::size_t bytes = 0;
    std::size_t sentences = 0;
    std::size_t gga = 0;
    std::string lineHead; // at most an address
};

} // namespace kestgps
