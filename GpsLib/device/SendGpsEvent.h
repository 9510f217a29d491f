// SendGpsEvent.h: hands one event without a payload to the event library.
#pragma once

#include <cstdint>

#include "GpsLib/contracts/KestEvent.h"

/// An event that can't be handed out for want of memory is lost, and nothing else.
inline void SendGpsEvent(std::uint16_t id) noexcept
{
    try {
        event::CustomEvent event(id, nullptr);
        event::EventHouse::SendEvent(&event);
    } catch (...) { // NOLINT(bugprone-empty-catch): nothing may end the reader thread
    }
}
