// Opening and closing over and over, with the receiver speaking and everyone asking.
#include <filesystem>
#include <future>
#include <vector>

#include "tests/live/LiveReceiver.h"

namespace
{

using live::IsWhole;

std::ptrdiff_t Threads()
{
    return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
}

/// Speaks without a pause until it goes.
class Speaker
{
public:
    explicit Speaker(support::PseudoTerminal& line)
        : speaking(std::async(std::launch::async, [this, &line] { Speak(line); }))
    {
    }
    ~Speaker() { stop = true; }

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
    std::future<void> speaking; // waited for when it goes
};

/// Result: how many times the device opened.
unsigned OpenAndClose(unsigned port, unsigned cycles)
{
    support::PseudoTerminal line;
    platform::AssignPort(port, line.Path());
    GPS::CGPSCOMDevice device;
    device.SetGPSCOMParam(port, 9600, 0, 8, 0);
    const Speaker speaker(line);
    unsigned opened = 0;
    for (unsigned cycle = 0; cycle < cycles; ++cycle) {
        opened += device.OpenGPS() ? 1U : 0U;
        device.CloseGPS();
    }
    platform::AssignPort(port, "");
    return opened;
}

TEST(OpenClose, ThousandCyclesLeaveNothingBehind)
{
    OpenAndClose(1, 1); // a first thread can bring another that stays, such as a sanitizer's
    const std::ptrdiff_t threads = Threads();
    std::vector<std::future<unsigned>> opened;
    for (unsigned port = 1; port <= 8; ++port) {
        opened.push_back(std::async(std::launch::async, OpenAndClose, port, 125));
    }
    for (std::future<unsigned>& times : opened) {
        EXPECT_EQ(times.get(), 125U);
    }
    for (int tries = 0; tries < 3000 && Threads() > threads; ++tries) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10)); // the last readers are on their way out
    }
    EXPECT_LE(Threads(), threads);
}

class QueryStress : public live::LiveReceiver
{
};

TEST_F(QueryStress, QueriesSeeWholeRecordsOnly)
{
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
    std::vector<std::future<void>> askers(4);
    for (std::future<void>& asker : askers) {
        asker = std::async(std::launch::async, ask);
    }
    {
        const Speaker speaker(line);
        for (unsigned cycle = 1; cycle <= 12; ++cycle) {
            EXPECT_TRUE(device.OpenGPS() && AwaitEpochs(cycle * 20));
            device.CloseGPS();
        }
    }
    stop = true;
    askers.clear(); // waits for them
    EXPECT_EQ(torn, 0U);
    EXPECT_GT(seen, 0U);
}

} // namespace
