// LiveSummary.h: what a run with a receiver came to.
#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace kestgps
{

struct ReceiverNotice;

/// Result: the name of a receiver's event; "unknown" for any other id.
const char* EventName(std::uint16_t eventId) noexcept;

/// Counts epochs and events.
class LiveSummary
{
public:
    void Take(const ReceiverNotice& notice);

    std::uint64_t Epochs() const noexcept { return withFix + withoutFix; }
    /// Result: two lines, without a line end behind the last.
    std::string Text() const;

private:
    std::uint64_t withFix = 0;
    std::uint64_t withoutFix = 0;
    std::map<std::uint16_t, std::uint64_t> events; // by id
};

} // namespace kestgps
