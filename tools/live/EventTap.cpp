#include "tools/live/EventTap.h"

#include <utility>

#include "GpsLib/device/GpsEvents.h"

namespace kestgps
{

EventRegistration::EventRegistration(std::uint16_t eventId, event::Receiver receiver)
    : id(event::RegisterReceiver(eventId, std::move(receiver)))
{
}

EventRegistration::~EventRegistration()
{
    event::RemoveReceiver(id);
}

EventTap::EventTap(GPS::CGPSCOMDevice& device, NoticeQueue& queue, Interest interest)
    : device(device),
      queue(queue),
      interest(interest),
      registrations{{{GPS_EVENT_EPOCH, Taker()},
                     {GPS_EVENT_MOVED, Taker()},
                     {GPS_EVENT_FIX_TIMEOUT, Taker()},
                     {GPS_EVENT_NO_FIX, Taker()}}}
{
}

event::Receiver EventTap::Taker()
{
    return [this](const event::CustomEvent& event) { Take(event.Id()); };
}

void EventTap::Take(std::uint16_t eventId)
{
    ReceiverNotice notice;
    notice.eventId = eventId;
    if (eventId == GPS_EVENT_EPOCH) {
        notice.hasFix = device.GetGPSData(notice.fix);
        notice.move = device.GetVehicleCurrMoveState();
        notice.heading = device.GetVehicleCurrHeadingState();
    }
    const std::lock_guard<std::mutex> guard(lock);
    if (finished) {
        return;
    }
    summary.Take(notice);
    const std::uint64_t lines = LinesOf(eventId);
    if (lines != 0 && !queue.Push(notice)) {
        lostLines += lines;
    }
    if (interest.epochMost != 0 && summary.Epochs() == interest.epochMost) {
        finished = true;
        queue.Finish();
    }
}

std::uint64_t EventTap::LinesOf(std::uint16_t eventId) const noexcept
{
    return (eventId == GPS_EVENT_EPOCH ? 1U : 0U) + (interest.events ? 1U : 0U);
}

LiveSummary EventTap::Summary() const
{
    const std::lock_guard<std::mutex> guard(lock);
    return summary;
}

std::uint64_t EventTap::TakeLostLines() noexcept
{
    const std::lock_guard<std::mutex> guard(lock);
    return std::exchange(lostLines, 0);
}

} // namespace kestgps
