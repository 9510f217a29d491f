// What the library relies on in the event library.
#include "GpsLib/contracts/KestEvent.h"

#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "EventTap.h" // that of the surroundings

namespace
{

TEST(EventContract, EventCarriesIdAndPayload)
{
    int payload = 0;
    const event::CustomEvent full(0xFFFF, &payload);
    EXPECT_EQ(full.Id(), 0xFFFF);
    EXPECT_EQ(full.Payload(), &payload);
}

TEST(EventContract, SendReturnsWhenTheEventHasBeenHeard)
{
    std::vector<const event::CustomEvent*> heard;
    const contract::EventTap tap(1001, [&](const event::CustomEvent& sent) { heard.push_back(&sent); });
    event::CustomEvent mine(1001, nullptr);
    event::CustomEvent other(1002, nullptr);
    event::EventHouse::SendEvent(&mine);
    EXPECT_THAT(heard, testing::ElementsAre(&mine));
    event::EventHouse::SendEvent(&other);
    event::EventHouse::SendEvent(&mine);
    EXPECT_THAT(heard, testing::ElementsAre(&mine, &mine));
}

TEST(EventContract, ReceiverMaySendItself)
{
    std::vector<int> order;
    const contract::EventTap tap(1001, [&order](const event::CustomEvent&) {
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

} // namespace
