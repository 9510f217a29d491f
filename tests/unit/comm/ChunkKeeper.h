// ChunkKeeper.h: a listener that keeps what it hears.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "GpsLib/comm/CommListener.h"

class ChunkKeeper final : public CommListener
{
public:
    void onData(const char* data, const std::uint32_t& length) override
    {
        chunks.emplace_back(data, length);
        if (inside) {
            inside();
        }
    }

    std::vector<std::string> chunks;
    std::function<void()> inside; // called from inside onData
};
