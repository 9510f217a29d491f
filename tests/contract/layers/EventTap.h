// EventTap.h: hears the events of one id on our layer while it lives.
#pragma once

#include <utility>

#include "layers/event/EventReceivers.h"

namespace contract
{

class EventTap
{
public:
    EventTap(std::uint16_t id, event::Receiver hear) : receiver(event::RegisterReceiver(id, std::move(hear)))
    {
    }
    ~EventTap() { event::RemoveReceiver(receiver); }

private:
    const event::ReceiverId receiver;
};

} // namespace contract
