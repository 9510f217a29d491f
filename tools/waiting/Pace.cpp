#include "tools/waiting/Pace.h"

#include <algorithm>
#include <thread>

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

Pace::Pace(double rate) noexcept : interval(IntervalOf(rate)), due(Clock::now()) {}

void Pace::AwaitNext()
{
    std::this_thread::sleep_until(due);
    due = std::max(due + interval, Clock::now());
}

} // namespace kestgps
