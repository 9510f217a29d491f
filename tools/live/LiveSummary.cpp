#include "tools/live/LiveSummary.h"

#include "GpsLib/device/GpsEvents.h"
#include "tools/live/ReceiverNotice.h"

namespace kestgps
{

const char* EventName(std::uint16_t eventId) noexcept
{
    switch (eventId) {
    case GPS_EVENT_EPOCH:
        return "epoch";
    case GPS_EVENT_MOVED:
        return "moved";
    case GPS_EVENT_FIX_TIMEOUT:
        return "fix timeout";
    case GPS_EVENT_NO_FIX:
        return "no fix";
    default:
        return "unknown";
    }
}

void LiveSummary::Take(const ReceiverNotice& notice)
{
    ++events[notice.eventId];
    if (notice.eventId == GPS_EVENT_EPOCH) {
        ++(notice.hasFix ? withFix : withoutFix);
    }
}

std::string LiveSummary::Text() const
{
    std::string text = "epochs: " + std::to_string(Epochs()) + ", with fix " + std::to_string(withFix) +
                       ", without " + std::to_string(withoutFix) + "\nevents:";
    const char* separator = " ";
    for (const auto& [eventId, count] : events) {
        text += separator + std::to_string(eventId) + " " + EventName(eventId) + " " + std::to_string(count);
        separator = ", ";
    }
    return events.empty() ? text + " none" : text;
}

} // namespace kestgps
