// LiveReceiver.h: a receiver device on a pseudo-terminal, and epochs to feed it with.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "GpsLib/Kest_GPS.h"
#include "layers/event/EventReceivers.h"
#include "layers/platform/PortMap.h"
#include "tests/support/PseudoTerminal.h"
#include "tests/support/Sentence.h"

namespace live
{

/// Time, status if any, and position of epoch k of a made-up drive. A field that differs from epoch to epoch
/// follows from k, so that a record of two epochs shows.
inline std::string Place(unsigned k, const std::string& status)
{
    const std::string minutes = "30." + std::to_string(10000 + k % 10000).substr(1);
    return ",1015" + std::to_string(100 + k % 60).substr(1) + status + ",48" + minutes + ",N,011" + minutes +
           ",E,";
}

/// The sentence that closes epoch k.
inline std::string Gga(unsigned k)
{
    return support::Sentence("GPGGA" + Place(k, "") + "1,08,0.9," + std::to_string(k) + ",M,,M,,");
}

/// The whole of epoch k.
inline std::string Epoch(unsigned k)
{
    return support::Sentence("GPRMC" + Place(k, ",A") + std::to_string(k % 100) + ".0,090.0,221126,,") +
           Gga(k);
}

/// Whether every field that the closing sentence gives a record is that of one epoch, the one that its
/// altitude names.
template <class RECORD>
bool IsWhole(const RECORD& record)
{
    const auto k = static_cast<unsigned>(record.altitude);
    const double degrees = (30 + k % 10000 * 1e-4) / 60.0;
    const auto near = [](double left, double right) { return left - right < 1e-9 && right - left < 1e-9; };
    return record.time.hour == 10 && record.time.minute == 15 && record.time.second == k % 60 &&
           near(record.lonLat.lat, 48 + degrees) && near(record.lonLat.lon, 11 + degrees) &&
           record.satUsed == 8 && record.valid == 1;
}

/// A device on a pseudo-terminal of its own, and the count of its events.
class LiveReceiver : public testing::Test
{
protected:
    static constexpr unsigned PORT = 5;

    LiveReceiver()
    {
        platform::AssignPort(PORT, line.Path());
        device.SetGPSCOMParam(PORT, 9600, 0, 8, 0);
        epochReceiver = event::RegisterReceiver(GPS_EVENT_EPOCH, [this](const event::CustomEvent&) {
            if (inEpoch) {
                inEpoch();
            }
            ++epochs;
        });
    }

    ~LiveReceiver() override
    {
        device.CloseGPS();
        event::RemoveReceiver(epochReceiver);
        platform::AssignPort(PORT, "");
    }

    /// Result: whether so many epochs came, at last.
    bool AwaitEpochs(unsigned count)
    {
        const auto giveUp = std::chrono::steady_clock::now() + PATIENCE;
        while (epochs < count && std::chrono::steady_clock::now() < giveUp) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        return epochs >= count;
    }

    static constexpr std::chrono::seconds PATIENCE{30}; // a test that needs it has failed
    support::PseudoTerminal line;
    GPS::CGPSCOMDevice device;
    std::function<void()> inEpoch; // on the reader thread; set before the device is opened
    std::atomic<unsigned> epochs{0};

private:
    event::ReceiverId epochReceiver = 0;
};

} // namespace live
