// Footprint.cpp: what devices take of memory and processor, printed as a table.
//
// usage: kest_gps_footprint SECONDS   for each rate at which a receiver is played
#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <pthread.h>

#include "GpsLib/Kest_GPS.h"
#include "GpsLib/comm/CommPort.h"
#include "GpsLib/comm/CommReader.h"
#include "bench/Allocations.h"
#include "bench/Corpus.h"
#include "layers/event/EventReceivers.h"
#include "layers/platform/PortMap.h"
#include "layers/route/CGuidePath.h"
#include "tools/receiver/PseudoTerminal.h"
#include "tools/waiting/FileDescriptor.h"

namespace
{

constexpr unsigned PORT = 1;
// The receiver's reads: time without any byte, rest behind each.
constexpr int READ_TIMEOUT = 612; // [ms]
constexpr std::chrono::milliseconds REST{50};

void Row(const char* what, double value, int decimals, const char* unit)
{
    std::printf("| %-60s | %10.*f %-6s |\n", what, decimals, value, unit);
}

/// [s] Result: 0 for what is no whole number above it.
int Seconds(const char* text)
{
    const long seconds = std::strtol(text, nullptr, 10);
    return seconds > 0 && seconds < 86400 ? static_cast<int>(seconds) : 0;
}

/// Result: [s] of processor time that a thread has taken, by its clock.
double ThreadSeconds(clockid_t clock) noexcept
{
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// The stack of the thread that paints it: how far down it has been used since.
class PaintedStack
{
public:
    /// Paints what is free below the caller. Thread: the one to be measured.
    void Paint() noexcept
    {
        pthread_attr_t attributes;
        void* low = nullptr;
        std::size_t size = 0;
        if (pthread_getattr_np(pthread_self(), &attributes) != 0) {
            return;
        }
        pthread_attr_getstack(&attributes, &low, &size);
        pthread_attr_destroy(&attributes);
        top = static_cast<volatile unsigned char*>(low) + size;
        end = static_cast<volatile unsigned char*>(__builtin_frame_address(0)) - OWN_FRAMES;
        begin = end - PAINTED;
        for (volatile unsigned char* byte = begin; byte != end; ++byte) {
            *byte = PAINT;
        }
    }

    /// Result: [byte] from the stack's top, the thread's own data among them, to the lowest one written
    /// since. Thread: as Paint.
    std::ptrdiff_t HighWater() const noexcept
    {
        const volatile unsigned char* byte = begin;
        while (byte != end && *byte == PAINT) {
            ++byte;
        }
        return top - byte;
    }

private:
    static constexpr unsigned char PAINT = 0xA5;
    static constexpr std::ptrdiff_t PAINTED = 65536; // [byte]
    static constexpr std::ptrdiff_t OWN_FRAMES = 1024;

    volatile unsigned char* top = nullptr;
    volatile unsigned char* begin = nullptr;
    volatile unsigned char* end = nullptr;
};

/// An open receiver, played from a software port.
class Receiver
{
public:
    explicit Receiver(bool smoothed)
    {
        platform::AssignPort(PORT, line.Path());
        device.SetGPSCOMParam(PORT, 38400, 0, 8, 0);
        if (smoothed) {
            device.OpenFilter();
        }
        counter =
            event::RegisterReceiver(GPS_EVENT_EPOCH, [this](const event::CustomEvent&) { NoteEpoch(); });
    }

    ~Receiver()
    {
        device.CloseGPS();
        event::RemoveReceiver(counter);
    }

    Receiver(const Receiver&) = delete;
    Receiver& operator=(const Receiver&) = delete;

    void Open()
    {
        if (!device.OpenGPS()) {
            throw std::runtime_error("the receiver doesn't open");
        }
    }

    /// Plays epochs at a rate. Result: the share of one processor that the reader thread took.
    double Play(int count, std::chrono::milliseconds period)
    {
        PlayOne(); // from here on everything has been made
        const double before = ReaderSeconds();
        const auto begin = std::chrono::steady_clock::now();
        for (int k = 1; k <= count; ++k) {
            PlayOne();
            std::this_thread::sleep_until(begin + k * period);
        }
        const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - begin;
        const double share = (ReaderSeconds() - before) / passed.count();
        lastOne = true;
        PlayOne();
        return share;
    }

    int Epochs() const noexcept { return epochs; }
    std::ptrdiff_t HighWater() const noexcept { return highWater; }
    double AllocationsAnEpoch() const noexcept
    {
        return static_cast<double>(allocationsNow - allocationsFirst) / (epochs - 1);
    }

private:
    static constexpr std::size_t BYTES_MAX = 1024; // of an epoch

    void PlayOne()
    {
        std::array<char, BYTES_MAX> bytes; // no block of the heap, since those are counted
        std::size_t size = 0;
        for (const SENTENCE sentence :
             {GSA, RMC, VTG, GGA}) { // ten times a second, a line has no room for more
            size += EPOCH[sentence].copy(&bytes[size], bytes.size() - size);
        }
        const int before = epochs;
        line.Write({bytes.data(), size});
        for (int tries = 0; epochs == before; ++tries) {
            if (tries == 1000) {
                throw std::runtime_error("an epoch didn't arrive");
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
    }

    /// On the reader thread.
    void NoteEpoch() noexcept
    {
        if (epochs == 0) {
            pthread_getcpuclockid(pthread_self(), &clock);
            stack.Paint();
            allocationsFirst = Allocations();
        }
        if (lastOne) { // looking takes longer than the epoch
            highWater = stack.HighWater();
        }
        allocationsNow = Allocations();
        ++epochs;
    }

    double ReaderSeconds() const noexcept { return ThreadSeconds(clock); }

    const std::vector<std::string> EPOCH = Epoch(0);
    kestgps::PseudoTerminal line;
    GPS::CGPSCOMDevice device;
    event::ReceiverId counter = 0;
    PaintedStack stack;
    clockid_t clock{};
    std::size_t allocationsFirst = 0;
    std::atomic<std::size_t> allocationsNow{0};
    std::atomic<std::ptrdiff_t> highWater{0};
    std::atomic<bool> lastOne{false};
    std::atomic<int> epochs{0};
};

/// What a reader that only waits takes: the receiver's waits and reads, and nothing done with the bytes.
double ShareOfWaiting(int count, std::chrono::milliseconds period)
{
    kestgps::PseudoTerminal line;
    const kestgps::FileDescriptor port(open(line.Path().c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    std::atomic<bool> going{true};
    double seconds = 0.0;
    std::thread reader([&] {
        char chunk[CommReader::CHUNK_MAX];
        while (going) {
            pollfd watched{port.Get(), POLLIN, 0};
            if (poll(&watched, 1, READ_TIMEOUT) > 0 && read(port.Get(), chunk, sizeof chunk) > 0) {
                std::this_thread::sleep_for(REST);
            }
        }
        seconds = ThreadSeconds(CLOCK_THREAD_CPUTIME_ID);
    });
    const auto begin = std::chrono::steady_clock::now();
    for (int k = 1; k <= count; ++k) {
        line.Write("$\r\n");
        std::this_thread::sleep_until(begin + k * period);
    }
    going = false;
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - begin;
    line.Write("$\r\n");
    reader.join();
    return seconds / passed.count();
}

/// Result: [byte] that `make` leaves living as long as what it gives lives.
template <class MAKE>
double StateOf(MAKE make)
{
    const std::size_t before = LivingBytes();
    const auto made = make();
    return static_cast<double>(LivingBytes() - before);
}

void PrintState()
{
    Row("state: closed receiver", StateOf([] { return std::make_unique<GPS::CGPSCOMDevice>(); }), 0, "byte");
    Row("state: replay", StateOf([] { return std::make_unique<GPS::CGPSLogDevice>(); }), 0, "byte");
    route::CGuidePath path({{11.0, 48.0}, {11.1, 48.1}});
    Row("state: simulated drive", StateOf([&path] {
            auto device = std::make_unique<GPS::CGPSSimuDevice>();
            device->SetSimuParam(&path, 1.0, 50.0);
            device->BeginSimu();
            return device;
        }),
        0, "byte");
}

/// Opening alone, then epochs, so that all that smoothing keeps is there.
void PrintOpenState(bool smoothed)
{
    Receiver receiver(smoothed);
    const double closed = StateOf([] { return std::make_unique<GPS::CGPSCOMDevice>(); });
    const std::size_t before = LivingBytes();
    receiver.Open();
    receiver.Play(3, std::chrono::milliseconds(0));
    Row(smoothed ? "state: open receiver, smoothing" : "state: open receiver",
        closed + static_cast<double>(LivingBytes() - before), 0, "byte");
}

void PrintWaiting(int rate, int seconds)
{
    const double share = ShareOfWaiting(rate * seconds, std::chrono::milliseconds(1000 / rate));
    Row(("waits and reads alone: share of a processor at " + std::to_string(rate) + " Hz").c_str(),
        share * 100, 3, "%");
}

void PrintRun(bool smoothed, int rate, int seconds)
{
    Receiver receiver(smoothed);
    receiver.Open();
    const double share = receiver.Play(rate * seconds, std::chrono::milliseconds(1000 / rate));
    const std::string at = " at " + std::to_string(rate) + " Hz" + (smoothed ? ", smoothing" : "");
    Row(("reader thread: share of a processor" + at).c_str(), share * 100, 3, "%");
    Row(("reader thread: allocations an epoch" + at).c_str(), receiver.AllocationsAnEpoch(), 0, "");
    Row(("reader thread: stack, high water" + at).c_str(), static_cast<double>(receiver.HighWater()), 0,
        "byte");
}

} // namespace

int main(int argc, char* argv[])
{
    const int seconds = argc == 2 ? Seconds(argv[1]) : 0;
    if (seconds == 0) {
        static_cast<void>(std::fprintf(stderr, "usage: kest_gps_footprint SECONDS\n"));
        return 2;
    }
    try {
        PrintState();
        PrintOpenState(false);
        PrintOpenState(true);
        PrintWaiting(1, seconds);
        PrintRun(false, 1, seconds);
        PrintWaiting(10, seconds);
        PrintRun(false, 10, seconds);
        PrintRun(true, 10, seconds);
    } catch (const std::exception& error) {
        static_cast<void>(std::fprintf(stderr, "kest_gps_footprint: %s\n", error.what()));
        return 1;
    }
    return 0;
}
