// What our event layer promises beyond the contract.
#include "layers/event/EventReceivers.h"

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace
{

using event::CustomEvent;
using event::ReceiverId;

constexpr std::uint16_t ID = 4711;

class EventLayer : public testing::Test
{
protected:
    ~EventLayer() override
    {
        for (const ReceiverId receiver : receivers) {
            event::RemoveReceiver(receiver);
        }
    }

    /// Registers one that notes its name and then does something.
    ReceiverId Register(char name, const std::function<void()>& then = nullptr)
    {
        receivers.push_back(event::RegisterReceiver(ID, [this, name, then](const CustomEvent&) {
            calls += name;
            if (then) {
                then();
            }
        }));
        return receivers.back();
    }

    std::string Send(std::uint16_t id = ID)
    {
        calls.clear();
        CustomEvent sent(id, nullptr);
        event::EventHouse::SendEvent(&sent);
        return calls;
    }

    std::vector<ReceiverId> receivers;
    std::string calls;
};

TEST_F(EventLayer, CallsReceiversOfTheIdInOrderOfRegistration)
{
    Register('a');
    const ReceiverId second = Register('b');
    Register('c');
    EXPECT_EQ(Send(), "abc");
    EXPECT_EQ(Send(ID + 1), "");
    EXPECT_TRUE(event::RemoveReceiver(second));
    EXPECT_FALSE(event::RemoveReceiver(second));
    EXPECT_FALSE(event::RemoveReceiver(0));
    Register('b');
    EXPECT_EQ(Send(), "acb");
}

TEST_F(EventLayer, ReceiverHearsTheEventItselfAndMaySendItself)
{
    int payload = 0;
    CustomEvent outer(0xFFFF, &payload);
    CustomEvent inner(ID, nullptr);
    std::vector<const CustomEvent*> heard;
    receivers.push_back(event::RegisterReceiver(0xFFFF, [&](const CustomEvent& sent) {
        EXPECT_EQ(sent.Id(), 0xFFFF);
        EXPECT_EQ(sent.Payload(), &payload);
        event::EventHouse::SendEvent(&inner);
        heard.push_back(&sent);
    }));
    receivers.push_back(
        event::RegisterReceiver(ID, [&](const CustomEvent& sent) { heard.push_back(&sent); }));
    event::EventHouse::SendEvent(&outer);
    EXPECT_EQ(heard, (std::vector<const CustomEvent*>{&inner, &outer}));
}

TEST_F(EventLayer, ReceiverRegisteredFromInsideHearsFromTheNextEventOn)
{
    Register('a', [this] { Register('b'); });
    EXPECT_EQ(Send(), "a");
    EXPECT_EQ(Send(), "ab");
}

TEST_F(EventLayer, ReceiverRemovedFromInsideHearsNoMore)
{
    ReceiverId itself = 0;
    ReceiverId later = 0;
    itself = Register('a', [&itself, &later] {
        EXPECT_TRUE(event::RemoveReceiver(itself));
        EXPECT_TRUE(event::RemoveReceiver(later));
    });
    later = Register('b');
    Register('c');
    EXPECT_EQ(Send(), "ac");
    EXPECT_EQ(Send(), "c");
}

TEST_F(EventLayer, WhatOneReceiverThrowsIsNoConcernOfTheOthers)
{
    Register('a', [] { throw std::runtime_error("receiver"); });
    Register('b');
    EXPECT_EQ(Send(), "ab");
}

TEST_F(EventLayer, RemovalWaitsForARunningCall)
{
    std::atomic<bool> entered{false};
    bool left = false; // plain: the removal alone orders it, as the thread sanitizer sees
    const ReceiverId slow = Register('a', [&entered, &left] {
        entered = true;
        std::this_thread::sleep_for(std::chrono::milliseconds(50)); // the removal begins in here
        left = true;
    });
    std::thread sender([this] { Send(); });
    while (!entered) {
        std::this_thread::yield();
    }
    EXPECT_TRUE(event::RemoveReceiver(slow));
    EXPECT_TRUE(left);
    sender.join();
}

TEST_F(EventLayer, ThreadsMaySendRegisterAndRemoveAtOnce)
{
    std::atomic<int> heard{0};
    std::atomic<bool> done{false};
    std::thread sender([this, &done] {
        while (!done) {
            Send();
        }
    });
    for (int i = 0; i < 1000 || heard == 0; ++i) {
        auto alive = std::make_unique<std::atomic<int>>(1);
        const ReceiverId receiver =
            event::RegisterReceiver(ID, [&heard, &own = *alive](const CustomEvent&) { heard += own; });
        ASSERT_TRUE(event::RemoveReceiver(receiver)); // what it refers to dies right behind
    }
    done = true;
    sender.join();
}

} // namespace
