// FakeEventHouse.h: keeps the ids of the events sent; one with a payload fails the test.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "GpsLib/contracts/KestEvent.h"

class FakeEventHouse
{
public:
    static void Reset() noexcept
    {
        ids.clear();
        onSend = nullptr;
    }

    static inline std::vector<std::uint16_t> ids; // in order of sending
    /// Called from inside each send, on the sending thread, behind the noting of the id; null for nothing.
    static inline std::function<void(const event::CustomEvent&)> onSend;
};
