#include "tests/contract/EventTap.h"

#include <utility>

#include "tests/fakes/FakeEventHouse.h"

std::shared_ptr<void> contract::TapEvents(std::uint16_t id,
                                          std::function<void(const event::CustomEvent&)> hear)
{
    FakeEventHouse::onSend = [id, hear = std::move(hear)](const event::CustomEvent& sent) {
        if (sent.Id() == id) {
            hear(sent);
        }
    };
    return {nullptr, [](std::nullptr_t) { FakeEventHouse::onSend = nullptr; }};
}
