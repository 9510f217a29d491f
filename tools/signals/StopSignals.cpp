#include "tools/signals/StopSignals.h"

#include <cerrno>
#include <csignal>
#include <iterator>

#include <sys/signalfd.h>

#include "tools/errors/ToolError.h"
#include "tools/signals/SignalEnd.h"

namespace kestgps
{

namespace
{

int HeldBackSignals() noexcept
{
    const sigset_t stops = HoldBackStopRequests();
    return signalfd(-1, &stops, SFD_CLOEXEC | SFD_NONBLOCK);
}

} // namespace

StopSignals::StopSignals() : signals(HeldBackSignals())
{
    if (!signals.IsOpen()) {
        throw ToolError("no descriptor left: " + ErrorText(errno));
    }
}

StopSignals::WAIT StopSignals::Wait(int descriptor, short events, std::optional<Clock::time_point> deadline)
{
    pollfd watched[] = {{signals.Get(), POLLIN, 0}, {descriptor, events, 0}};
    if (!PollUntil(watched, std::size(watched), deadline)) {
        return WAIT::TIME_OUT;
    }
    return TakeOne() ? WAIT::STOPPED : WAIT::READY;
}

void StopSignals::Forget() noexcept
{
    while (TakeOne()) {
    }
}

bool StopSignals::TakeOne() noexcept
{
    signalfd_siginfo taken{};
    return read(signals.Get(), &taken, sizeof taken) > 0;
}

} // namespace kestgps
