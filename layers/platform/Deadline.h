// Deadline.h: waiting for descriptors until a point in time.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>

#include <poll.h>

namespace platform
{

/// Never set, unlike the time of day, so that a wait lasts as long as it says.
using Clock = std::chrono::steady_clock;

/// The deadline that never comes.
constexpr Clock::time_point NEVER = Clock::time_point::max();

/// Result: now and a platform time-out.
/// timeout: [ms], 0 means none. A sum past 49.7 days ends there.
Clock::time_point DeadlineIn(std::uint64_t timeout) noexcept;

/// Waits until one of the descriptors has something to tell in its `revents` or the deadline has come; a
/// deadline in the past still takes a look. Signals neither end nor lengthen the wait.
void PollUntil(pollfd* watched, std::size_t count, Clock::time_point deadline) noexcept;

} // namespace platform
