#include "tools/waiting/PollUntil.h"

#include <algorithm>
#include <cerrno>
#include <ctime>

namespace kestgps
{

namespace
{

timespec Remaining(Clock::time_point deadline) noexcept
{
    const auto left = std::max(deadline - Clock::now(), Clock::duration::zero());
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(left);
    const auto rest = std::chrono::duration_cast<std::chrono::nanoseconds>(left - seconds);
    timespec span{};
    span.tv_sec = static_cast<decltype(span.tv_sec)>(seconds.count());
    span.tv_nsec = static_cast<decltype(span.tv_nsec)>(rest.count());
    return span;
}

} // namespace

bool PollUntil(pollfd* watched, std::size_t count, std::optional<Clock::time_point> deadline) noexcept
{
    int ready = 0;
    do {
        timespec span{};
        if (deadline) {
            span = Remaining(*deadline);
        }
        ready = ppoll(watched, static_cast<nfds_t>(count), deadline ? &span : nullptr, nullptr);
    } while (ready < 0 && errno == EINTR);
    return ready > 0;
}

} // namespace kestgps
