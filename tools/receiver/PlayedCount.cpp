#include "tools/receiver/PlayedCount.h"

namespace kestgps
{

void PlayedCount::Take(std::string_view piece)
{
    constexpr std::size_t ADDRESS_LENGTH = 6; // "$GPGGA"
    bytes += piece.size();
    for (const char character : piece) {
        if (character == '\n') {
            lineHead.clear();
        } else if (lineHead.size() < ADDRESS_LENGTH) {
            lineHead += character;
            const bool whole = lineHead.size() == ADDRESS_LENGTH && lineHead.front() == '$';
            sentences += whole ? 1U : 0U;
            gga += whole && lineHead.compare(3, 3, "GGA") == 0 ? 1U : 0U;
        }
    }
}

} // namespace kestgps
