// ReceiverFeed.h: a receiver's device and listener without a port, fed by hand.
#pragma once

#include <string>

#include "GpsLib/device/CGPSCOMDeviceImpl.h"
#include "GpsLib/device/CGPSStreamListener.h"
#include "tests/support/Sentence.h"

struct ReceiverFeed {
    explicit ReceiverFeed(GPS::CGPSLogDeviceImpl* logWriter = nullptr) : listener(&device, logWriter) {}

    void Feed(const std::string& chunk)
    {
        const auto bytes = support::ExactCopy(chunk);
        listener.onData(bytes.get(), static_cast<std::uint32_t>(chunk.size()));
    }

    /// The last closed epoch; `valid` 0 when it has no fix.
    _GPS_Data Current()
    {
        _GPS_Data data = support::NoFix();
        device.GetGPSData(data);
        return data;
    }

    GPS::CGPSCOMDeviceImpl device;
    GPS::CGPSStreamListener listener;
};
