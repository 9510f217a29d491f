// LiveReceiver.h: a receiver device on a pseudo-terminal, and epochs to feed it with.
#pragma once

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>

#include <gtest/gtest.h>

#include "GpsLib/Kest_GPS.h"
#include "layers/event/EventReceivers.h"
#include "layers/platform/PortMap.h"
#include "tests/support/PseudoTerminal.h"
#include "tests/support/Sentence.h"

namespace live
{

constexpr unsigned BAUD = 9600;

/// A number in so many digits, with zeros in front.
inline std::string Digits(unsigned number, std::size_t count)
{
    const std::string digits = std::to_string(number);
    return std::string(count - std::min(count, digits.size()), '0') + digits;
}

/// Time and position of epoch k of a made-up drive.
inline std::string TimeOf(unsigned k)
{
    return Digits(k / 3600 % 24, 2) + Digits(k / 60 % 60, 2) + Digits(k % 60, 2);
}

inline std::string PositionOf(unsigned k)
{
    const std::string minutes = Digits(k / 100 % 60, 2) + "." + Digits(k % 100, 4);
    return "48" + minutes + ",N,011" + minutes + ",E";
}

/// The sentence that closes epoch k: every field of it follows from k, so a record that mixes two epochs
/// shows.
inline std::string Gga(unsigned k)
{
    return support::Sentence("GPGGA," + TimeOf(k) + "," + PositionOf(k) + ",1,08,0.9," + std::to_string(k) +
                             ",M,,M,,");
}

/// The whole of epoch k.
inline std::string Epoch(unsigned k)
{
    return support::Sentence("GPRMC," + TimeOf(k) + ",A," + PositionOf(k) + "," + std::to_string(k % 100) +
                             ".0,090.0,221126,,") +
           Gga(k);
}

/// The epoch that a record's altitude names.
inline unsigned EpochOf(double altitude)
{
    return static_cast<unsigned>(altitude);
}

/// Whether every field that the closing sentence gives a record is that of one epoch.
template <class RECORD>
bool IsWhole(const RECORD& record)
{
    const unsigned k = EpochOf(record.altitude);
    const double degrees = (k / 100 % 60 + k % 100 * 1e-4) / 60.0;
    const auto near = [](double left, double right) { return left - right < 1e-9 && right - left < 1e-9; };
    return record.time.hour == k / 3600 % 24 && record.time.minute == k / 60 % 60 &&
           record.time.second == k % 60 && near(record.lonLat.lat, 48 + degrees) &&
           near(record.lonLat.lon, 11 + degrees) && record.satUsed == 8 && record.valid == 1;
}

/// A device on a pseudo-terminal of its own, and the count of its events.
class LiveReceiver : public testing::Test
{
protected:
    static constexpr unsigned PORT = 5;

    LiveReceiver()
    {
        platform::AssignPort(PORT, line.Path());
        device.SetGPSCOMParam(PORT, BAUD, 0, 8, 0);
        epochReceiver = event::RegisterReceiver(GPS_EVENT_EPOCH, [this](const event::CustomEvent&) {
            if (inEpoch) {
                inEpoch();
            }
            const std::lock_guard<std::mutex> held(lock);
            ++epochs;
            changed.notify_all();
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
        std::unique_lock<std::mutex> held(lock);
        return changed.wait_for(held, PATIENCE, [this, count] { return epochs >= count; });
    }

    unsigned Epochs()
    {
        const std::lock_guard<std::mutex> held(lock);
        return epochs;
    }

    static constexpr std::chrono::seconds PATIENCE{30}; // a test that needs it has failed
    support::PseudoTerminal line;
    GPS::CGPSCOMDevice device;
    std::function<void()> inEpoch; // on the reader thread; set before the device is opened

private:
    std::mutex lock;
    std::condition_variable changed;
    unsigned epochs = 0;
    event::ReceiverId epochReceiver = 0;
};

} // namespace live
