// EventTap.h: takes down the events of a receiver as they are sent.
#pragma once

#include <array>
#include <cstdint>
#include <mutex>

#include "GpsLib/device/CGPSCOMDevice.h"
#include "layers/event/EventReceivers.h"
#include "tools/live/LiveSummary.h"
#include "tools/live/NoticeQueue.h"

namespace kestgps
{

/// A registration that lasts as long as this object; afterwards the receiver isn't running any more.
class EventRegistration
{
public:
    EventRegistration(std::uint16_t eventId, event::Receiver receiver);
    ~EventRegistration();
    EventRegistration(const EventRegistration&) = delete;
    EventRegistration& operator=(const EventRegistration&) = delete;

private:
    const event::ReceiverId id;
};

/// Turns each event into a notice in a queue, on the reader thread and without waiting for anything.
class EventTap
{
public:
    /// Which lines are made of the notices, and when they end.
    struct Interest {
        bool events = false;         ///< events have lines of their own
        std::uint64_t epochMost = 0; ///< epochs to take; 0 takes all
    };

    /// Registers for all four events. device, queue: borrowed.
    EventTap(GPS::CGPSCOMDevice& device, NoticeQueue& queue, Interest interest);

    /// Result: the counts so far, of everything that came up to the last epoch to take. Thread: any.
    LiveSummary Summary() const;
    /// Result: the lines that found no room in the queue since the last call. Thread: any.
    std::uint64_t TakeLostLines() noexcept;

private:
    void Take(std::uint16_t eventId);
    std::uint64_t LinesOf(std::uint16_t eventId) const noexcept;
    event::Receiver Taker();

    GPS::CGPSCOMDevice& device; // borrowed
    NoticeQueue& queue;         // borrowed
    const Interest interest;
    mutable std::mutex lock;
    LiveSummary summary;                            // guarded by lock
    std::uint64_t lostLines = 0;                    // guarded by lock
    bool finished = false;                          // guarded by lock
    std::array<EventRegistration, 4> registrations; // the last field: events come from here on
};

} // namespace kestgps
