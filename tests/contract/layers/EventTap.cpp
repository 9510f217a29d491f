#include "tests/contract/EventTap.h"

#include <utility>

#include "layers/event/EventReceivers.h"

std::shared_ptr<void> contract::TapEvents(std::uint16_t id,
                                          std::function<void(const event::CustomEvent&)> hear)
{
    const event::ReceiverId receiver = event::RegisterReceiver(id, std::move(hear));
    return {nullptr, [receiver](std::nullptr_t) { event::RemoveReceiver(receiver); }};
}
