// PacedReceiver.h: an open receiver on a software port that is fed as a serial line would feed it.
#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <ctime>
#include <string>
#include <vector>

#include "GpsLib/Kest_GPS.h"
#include "layers/event/EventReceivers.h"
#include "layers/platform/PortMap.h"
#include "tools/receiver/PseudoTerminal.h"

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

/// [bit] of a byte on the line: start, eight, stop.
constexpr double BITS_A_BYTE = 10.0;

/// A burst, and where in it the GGA ends.
struct Burst {
    std::string bytes;
    std::size_t ggaEnd = 0;
};

/// Throws std::runtime_error when anything of it fails. Thread: one.
class PacedReceiver
{
public:
    static constexpr unsigned PORT = 1;

    explicit PacedReceiver(const platform::PortOptions& options);
    ~PacedReceiver();
    PacedReceiver(const PacedReceiver&) = delete;
    PacedReceiver& operator=(const PacedReceiver&) = delete;

    GPS::CGPSCOMDevice& Device() noexcept { return device; }

    /// Result: how many of the bytes there was room for.
    std::size_t Offer(const std::string& bytes) { return port.Write(bytes); }
    /// Sends what crosses the line in a millisecond, or a byte, when it has crossed.
    /// Result: when the GGA's last byte went.
    Clock::time_point Play(const Burst& burst, double baudRate, Clock::time_point begin);

    void AwaitEpochs(std::size_t count) const;
    /// Result: when each epoch's event came, as far as AwaitEpochs has waited.
    const std::vector<Clock::time_point>& Came() const noexcept { return came; }
    /// Result: [s] of processor time of the reader thread. An epoch must have come.
    double ProcessorSeconds() const noexcept;

private:
    kestgps::PseudoTerminal port;
    GPS::CGPSCOMDevice device;
    event::ReceiverId noter = 0;
    std::vector<Clock::time_point> came; // by the reader thread, before it counts the epoch
    clockid_t clock{};                   // the same
    std::atomic<std::size_t> epochs{0};
};
