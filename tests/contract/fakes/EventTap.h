// EventTap.h: hears the events of one id on the fake while it lives. One at a time.
#pragma once

#include <utility>

#include "tests/fakes/FakeEventHouse.h"

namespace contract
{

class EventTap
{
public:
    EventTap(std::uint16_t id, std::function<void(const event::CustomEvent&)> hear)
    {
        FakeEventHouse::onSend = [id, hear = std::move(hear)](const event::CustomEvent& sent) {
            if (sent.Id() == id) {
                hear(sent);
            }
        };
    }
    ~EventTap() { FakeEventHouse::onSend = nullptr; }
};

} // namespace contract
