// Each allocation of a device's work failing once: a plain answer, nothing lost behind it, nothing leaked.
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "GpsLib/Kest_GPS.h"
#include "GpsLib/device/CGPSCOMDeviceImpl.h"
#include "GpsLib/device/CGPSStreamListener.h"
#include "GpsLib/device/GpsEvents.h"
#include "layers/event/EventReceivers.h"
#include "layers/route/CGuidePath.h"
#include "tests/alloc/CountedHeap.h"
#include "tests/live/LiveReceiver.h"
#include "tests/support/TemporaryFolder.h"

namespace
{

class FailingHeap : public testing::Test
{
protected:
    FailingHeap()
    {
        event::RemoveReceiver(0); // the list of receivers is there from now on, and stays
        before = heap::Living();
    }

    ~FailingHeap() override { EXPECT_EQ(heap::Living(), before) << "given back"; }

private:
    std::int64_t before;
};

TEST_F(FailingHeap, DeviceWithoutMemoryAnswersNo)
{
    struct Devices {
        GPS::CGPSCOMDevice receiver;
        GPS::CGPSLogDevice log;
        GPS::CGPSSimuDevice simulation; // takes nothing yet
    };
    std::optional<Devices> devices;
    std::uint64_t n = 1;
    for (; heap::Failing(n, [&devices] { devices.emplace(); }); ++n) {
        _GPS_Data fix;
        EXPECT_FALSE(devices->receiver.GetGPSData(fix));
        EXPECT_FALSE(devices->log.GetGPSData(fix) || devices->log.OpenLogFileForWrite("/none/log"));
        EXPECT_FALSE(devices->simulation.GetGPSData(fix));
        devices->receiver.OpenFilter();
        devices->receiver.SetFilterModel(FILTERMODEL_VELOCITY);
        devices->log.SetFilterModel(FILTERMODEL_VELOCITY);
        devices->receiver.CloseGPS();
        EXPECT_EQ(devices->receiver.GetVehicleCurrMoveState(), MOVESTATE_UNKNOWN);
        EXPECT_EQ(devices->receiver.GetVehicleCurrHeadingState(), HEADINGSTATE_UNKNOWN);
    }
    EXPECT_GT(n, 10U) << "two objects, and what they hold";
}

TEST_F(FailingHeap, SimulationAnswersNoAndThenDrives)
{
    std::vector<tagLonLat> road;
    road.reserve(300);
    for (int i = 0; i < 300; ++i) { // several blocks
        road.push_back({11.0 + i * 1e-4, 48.0});
    }
    route::CGuidePath path(road);
    std::uint64_t n = 1;
    for (bool failed = true; failed; ++n) {
        GPS::CGPSSimuDevice device;
        bool set = false;
        bool begun = false;
        _GPS_Data fix;
        failed = heap::Failing(n, [&] {
            set = device.SetSimuParam(&path, 1.0, 100.0);
            begun = device.BeginSimu();
            while (device.GetGPSData(fix)) {
            }
        });
        EXPECT_EQ(set, !failed);
        EXPECT_EQ(begun, !failed);
        EXPECT_EQ(fix.lonLat.lon == road.back().lon, !failed);
        EXPECT_TRUE(device.SetSimuParam(&path, 1.0, 100.0) && device.BeginSimu() && device.GetGPSData(fix));
    }
    EXPECT_GT(n, 2U);
}

TEST_F(FailingHeap, LogIsWrittenWhole)
{
    const support::TemporaryFolder folder;
    const std::string path = folder.Path("log");
    std::uint64_t n = 1;
    for (bool failed = true; failed; ++n) {
        {
            GPS::CGPSLogDevice device;
            failed = heap::Failing(n, [&] {
                EXPECT_TRUE(device.OpenLogFileForWrite(path.c_str())) << "by the other way of opening";
                EXPECT_TRUE(device.WriteLog("$GPGGA,1\r\n") && device.WriteLog("$GPGGA,2"));
            });
        }
        EXPECT_EQ(folder.Content("log"), "$GPGGA,1\r\n$GPGGA,2\r\n") << n;
        std::filesystem::remove(path);
    }
}

/// A smoothing receiver from the chunk to the record, on this thread.
class Receiver
{
public:
    Receiver() { device.OpenFilter(); }

    void Take(const std::string& chunk)
    {
        listener.onData(chunk.data(), static_cast<std::uint32_t>(chunk.size()));
    }

    _GPS_Data Fix()
    {
        _GPS_Data fix;
        EXPECT_TRUE(device.GetGPSData(fix));
        return fix;
    }

private:
    GPS::CGPSCOMDeviceImpl device;
    GPS::CGPSStreamListener listener{&device, nullptr};
};

constexpr double SPEED = 1.852; // [km/h] so slow that headings are averaged

std::string SlowEpoch(unsigned k)
{
    return support::Sentence("GPRMC" + live::Place(k, ",A") + "1.0," + std::to_string(10 * k) + ",221126,,") +
           live::Gga(k);
}

bool IsAsParsed(const _GPS_Data& fix)
{
    return live::IsWhole(fix) && fix.speed == SPEED && fix.heading == 10.0 * fix.altitude;
}

TEST_F(FailingHeap, EpochThatFindsNoMemoryComesAsParsedAndTheNextBeginsARun)
{
    int events = 0;
    const event::ReceiverId counter =
        event::RegisterReceiver(GPS_EVENT_EPOCH, [&events](const event::CustomEvent&) { ++events; });
    const std::string chunks[] = {SlowEpoch(1), SlowEpoch(2), SlowEpoch(3), SlowEpoch(4), SlowEpoch(5)};
    const auto smoothed = [&chunks] {
        Receiver fresh;
        fresh.Take(chunks[3]);
        fresh.Take(chunks[4]);
        return fresh.Fix();
    }();
    ASSERT_FALSE(IsAsParsed(smoothed));
    for (const int earlier : {0, 1, 2}) { // epochs of the run, the first of which is never smoothed
        std::uint64_t n = 1;
        for (bool failed = true; failed; ++n) {
            Receiver receiver;
            for (int i = 0; i < earlier; ++i) {
                receiver.Take(chunks[i]);
            }
            events = 0;
            failed = heap::Failing(n, [&] { receiver.Take(chunks[2]); });
            EXPECT_EQ(receiver.Fix().altitude, 3.0) << "the right epoch";
            EXPECT_EQ(IsAsParsed(receiver.Fix()), failed || earlier == 0) << n;
            receiver.Take(chunks[3]);
            EXPECT_EQ(IsAsParsed(receiver.Fix()), failed) << n;
            receiver.Take(chunks[4]);
            EXPECT_EQ(receiver.Fix().lonLat.lon == smoothed.lonLat.lon, failed) << n;
            EXPECT_EQ(receiver.Fix().speed == smoothed.speed, failed) << n;
            EXPECT_EQ(events, 3) << n;
        }
        EXPECT_GT(n, earlier == 0 ? 2U : 10U);
    }
    event::RemoveReceiver(counter);
}

} // namespace
