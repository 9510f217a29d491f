#include "layers/platform/Deadline.h"

#include <algorithm>
#include <cerrno>
#include <limits>

#include "GpsLib/contracts/WinSerial.h"

namespace platform
{

namespace
{

using std::chrono::milliseconds;

// As poll takes it, rounded up: a wait that ends early would only be begun again.
int MillisecondsUntil(Clock::time_point deadline)
{
    if (deadline == NEVER) {
        return -1;
    }
    const Clock::time_point now = Clock::now();
    if (deadline <= now) {
        return 0;
    }
    const auto left = std::chrono::ceil<milliseconds>(deadline - now).count();
    return static_cast<int>(std::min<milliseconds::rep>(left, std::numeric_limits<int>::max()));
}

} // namespace

Clock::time_point DeadlineIn(std::uint64_t timeout) noexcept
{
    if (timeout == 0) {
        return NEVER;
    }
    return Clock::now() +
           milliseconds(std::min<std::uint64_t>(timeout, MAXDWORD)); // the clock can't overflow so
}

void PollUntil(pollfd* watched, std::size_t count, Clock::time_point deadline) noexcept
{
    while (poll(watched, static_cast<nfds_t>(count), MillisecondsUntil(deadline)) < 0 && errno == EINTR) {
    }
}

} // namespace platform
