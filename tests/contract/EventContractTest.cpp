// What the library relies on in the event library.
#include "GpsLib/contracts/KestEvent.h"

#include <vector>

#include <gtest/gtest.h>

#include "tests/contract/EventTap.h"

namespace
{

TEST(EventContract, EventCarriesIdAndPayload)
{
    int payload = 0;
    const event::CustomEvent full(0xFFFF, &payload);
    EXPECT_EQ(full.Id(), 0xFFFF);
    EXPECT_EQ(full.Payload(), &payload);
    const event::CustomEvent empty(0, nullptr);
    EXPECT_EQ(empty.Id(), 0);
    EXPECT_EQ(empty.Payload(), nullptr);
}

TEST(EventContract, SendReturnsWhenTheEventHasBeenHeard)
{
    std::vector<const event::CustomEvent*> heard;
    const auto tap =
        contract::TapEvents(1001, [&heard](const event::CustomEvent& sent) { heard.push_back(&sent); });
    event::CustomEvent mine(1001, nullptr);
    event::CustomEvent other(1002, nullptr);
    event::EventHouse::SendEvent(&mine);
    EXPECT_EQ(heard, (std::vector<const event::CustomEvent*>{&mine}));
    event::EventHouse::SendEvent(&other);
    event::EventHouse::SendEvent(&mine);
    EXPECT_EQ(heard, (std::vector<const event::CustomEvent*>{&mine, &mine}));
}

TEST(EventContract, ReceiverMaySendItself)
{
    std::vector<int> order;
    const auto tap = contract::TapEvents(1001, [&order](const event::CustomEvent&) {
        order.push_back(1);
        if (order.size() < 3) {
            event::CustomEvent inner(1001, nullptr);
            event::EventHouse::SendEvent(&inner);
        }
        order.push_back(2);
    });
    event::CustomEvent outer(1001, nullptr);
    event::EventHouse::SendEvent(&outer);
    EXPECT_EQ(order, (std::vector<int>{1, 1, 1, 2, 2, 2}));
}

TEST(EventContract, EventThatNobodyHearsIsNoFailure)
{
    event::CustomEvent unheard(1003, nullptr);
    EXPECT_NO_THROW(event::EventHouse::SendEvent(&unheard));
}

} // namespace
