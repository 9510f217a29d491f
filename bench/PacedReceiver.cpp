#include "bench/PacedReceiver.h"

#include <algorithm>
#include <stdexcept>
#include <thread>

#include <pthread.h>

PacedReceiver::PacedReceiver(const platform::PortOptions& options)
{
    platform::AssignPort(PORT, port.Path(), options);
    came.reserve(100000);
    device.SetGPSCOMParam(PORT, 115200, 0, 8, 0); // a software port has any speed
    noter = event::RegisterReceiver(GPS_EVENT_EPOCH, [this](const event::CustomEvent&) {
        came.push_back(Clock::now());
        pthread_getcpuclockid(pthread_self(), &clock);
        ++epochs;
    });
    if (!device.OpenGPS()) {
        throw std::runtime_error("the receiver doesn't open");
    }
}

PacedReceiver::~PacedReceiver()
{
    device.CloseGPS();
    event::RemoveReceiver(noter);
    platform::AssignPort(PORT, "");
}

Clock::time_point PacedReceiver::Play(const Burst& burst, double baudRate, Clock::time_point begin)
{
    const Milliseconds byteTime(1000.0 * BITS_A_BYTE / baudRate);
    const auto slice = static_cast<std::size_t>(std::max(1.0, 1.0 / byteTime.count()));
    Clock::time_point ggaSent;
    for (std::size_t at = 0; at < burst.bytes.size();) {
        const std::size_t stop = at < burst.ggaEnd ? burst.ggaEnd : burst.bytes.size();
        const std::size_t length = std::min(slice, stop - at);
        at += length;
        std::this_thread::sleep_until(
            begin + std::chrono::duration_cast<Clock::duration>(byteTime * static_cast<double>(at)));
        if (at == burst.ggaEnd) {
            ggaSent = Clock::now();
        }
        if (Offer(burst.bytes.substr(at - length, length)) != length) {
            throw std::runtime_error("the port's queue is full");
        }
    }
    return ggaSent;
}

void PacedReceiver::AwaitEpochs(std::size_t count) const
{
    constexpr int TRIES = 1000; // longer than any read
    for (int tries = 0; epochs < count; ++tries) {
        if (tries == TRIES) {
            throw std::runtime_error("an epoch didn't arrive");
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

double PacedReceiver::ProcessorSeconds() const noexcept
{
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}
