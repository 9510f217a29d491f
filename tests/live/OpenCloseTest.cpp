// Opening and closing over and over, with the receiver speaking and everyone asking.
#include <atomic>
#include <filesystem>
#include <memory>
#include <thread>
#include <vector>

#include "tests/live/LiveReceiver.h"

namespace
{

using live::IsWhole;

std::ptrdiff_t EntriesOf(const char* directory)
{
    const std::filesystem::directory_iterator entries(directory);
    return std::distance(begin(entries), end(entries));
}

std::ptrdiff_t Descriptors()
{
    return EntriesOf("/proc/self/fd");
}
std::ptrdiff_t Threads()
{
    return EntriesOf("/proc/self/task");
}

/// Speaks without a pause until it goes.
class Speaker
{
public:
    explicit Speaker(support::PseudoTerminal& line) : thread([this, &line] { Speak(line); }) {}
    ~Speaker()
    {
        stop = true;
        thread.join();
    }

private:
    void Speak(support::PseudoTerminal& line)
    {
        for (unsigned k = 1; !stop; ++k) {
            const std::string epoch = live::Gga(k); // alone: cut by a pause of this thread, it has no fix
            for (std::size_t at = 0; at < epoch.size() && !stop;) { // whole, however long nobody reads
                at += line.Offer(std::string_view(epoch).substr(at), 20);
            }
        }
    }

    std::atomic<bool> stop{false};
    std::thread thread;
};

TEST(OpenClose, ThousandCyclesLeaveNothingBehind)
{
    constexpr unsigned DEVICES = 8;
    constexpr unsigned CYCLES = 125;
    struct Place {
        support::PseudoTerminal line;
        GPS::CGPSCOMDevice device;
    };
    std::vector<std::unique_ptr<Place>> places;
    places.reserve(DEVICES);
    for (unsigned port = 1; port <= DEVICES; ++port) {
        places.push_back(std::make_unique<Place>());
        platform::AssignPort(port, places.back()->line.Path());
        places.back()->device.SetGPSCOMParam(port, live::BAUD, 0, 8, 0);
    }
    places.front()->device.OpenGPS(); // a first thread can bring another that stays, such as a sanitizer's
    places.front()->device.CloseGPS();
    const std::ptrdiff_t descriptors = Descriptors();
    const std::ptrdiff_t threads = Threads();
    std::atomic<unsigned> opened{0};
    std::vector<std::thread> cyclers;
    cyclers.reserve(DEVICES);
    for (const auto& place : places) {
        cyclers.emplace_back([&place, &opened] {
            const Speaker speaker(place->line);
            for (unsigned cycle = 0; cycle < CYCLES; ++cycle) {
                opened += place->device.OpenGPS() ? 1U : 0U;
                place->device.CloseGPS();
            }
        });
    }
    for (std::thread& cycler : cyclers) {
        cycler.join();
    }
    EXPECT_EQ(opened, DEVICES * CYCLES);
    EXPECT_EQ(Descriptors(), descriptors);
    for (int tries = 0; tries < 3000 && Threads() > threads; ++tries) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10)); // the last readers are on their way out
    }
    EXPECT_LE(Threads(), threads);
    for (unsigned port = 1; port <= DEVICES; ++port) {
        platform::AssignPort(port, "");
    }
}

class QueryStress : public live::LiveReceiver
{
};

TEST_F(QueryStress, QueriesSeeWholeRecordsOnly)
{
    constexpr unsigned CYCLES = 12;
    std::atomic<bool> stop{false};
    std::atomic<unsigned> torn{0};
    std::atomic<unsigned> seen{0};
    const auto ask = [&] {
        _GPS_Data fix;
        _GPS_Data_Without_Sate narrow{};
        _GPS_Satellite satellites{};
        while (!stop) {
            torn += device.GetGPSData(fix) && !IsWhole(fix) ? 1U : 0U;
            torn += device.GetGPSDataWithoutSate(narrow) && !IsWhole(narrow) ? 1U : 0U;
            torn += device.GetLastValidData(fix) && fix.valid != 0 && !IsWhole(fix) ? 1U : 0U;
            seen += device.GetWholeSate(satellites) && device.IsGPSValid() ? 1U : 0U;
            device.GetVehicleCurrMoveState();
            device.GetVehicleCurrHeadingState();
            std::this_thread::yield();
        }
    };
    constexpr unsigned ASKERS = 4;
    std::vector<std::thread> askers;
    askers.reserve(ASKERS);
    for (unsigned i = 0; i < ASKERS; ++i) {
        askers.emplace_back(ask);
    }
    {
        const Speaker speaker(line);
        for (unsigned cycle = 1; cycle <= CYCLES; ++cycle) {
            ASSERT_TRUE(device.OpenGPS());
            EXPECT_TRUE(AwaitEpochs(cycle * 20));
            device.CloseGPS();
        }
    }
    stop = true;
    for (std::thread& asker : askers) {
        asker.join();
    }
    EXPECT_EQ(torn, 0U);
    EXPECT_GT(seen, 0U);
}

} // namespace
