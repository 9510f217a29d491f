#include "tools/Pace.h"

#include <algorithm>

namespace kestgps
{

namespace
{

Clock::duration IntervalOf(double rate) noexcept
{
    if (rate <= 0.0) {
        return Clock::duration::zero();
    }
    return std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(1.0 / rate));
}

} // namespace

Pace::Pace(double rate, StopSignals& signals) noexcept
    : signals(signals), interval(IntervalOf(rate)), due(Clock::now())
{
}

bool Pace::AwaitNext()
{
    constexpr int NOTHING_TO_WATCH = -1;
    if (signals.Wait(NOTHING_TO_WATCH, 0, due) == StopSignals::WAIT::STOPPED) {
        return false;
    }
    due = std::max(due + interval, Clock::now());
    return true;
}

} // namespace kestgps
