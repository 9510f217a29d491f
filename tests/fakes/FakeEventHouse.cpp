#include "tests/fakes/FakeEventHouse.h"

#include <gtest/gtest.h>

namespace event
{

CustomEvent::CustomEvent(std::uint16_t id, void* payload) : id(id), payload(payload) {}

CustomEvent::~CustomEvent() {}

std::uint16_t CustomEvent::Id() const noexcept
{
    return id;
}

void* CustomEvent::Payload() const noexcept
{
    return payload;
}

void EventHouse::SendEvent(CustomEvent* event)
{
    EXPECT_EQ(event->Payload(), nullptr) << "event " << event->Id();
    FakeEventHouse::ids.push_back(event->Id());
    if (FakeEventHouse::onSend) {
        FakeEventHouse::onSend(*event);
    }
}

} // namespace event
