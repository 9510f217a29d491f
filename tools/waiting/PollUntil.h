// PollUntil.h: waits on descriptors up to a point in time, whatever signals come in between.
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>

#include <poll.h>

namespace kestgps
{

using Clock = std::chrono::steady_clock;

/// Fills `revents` of each entry.
/// deadline: none waits for ever. Result: true when a descriptor is ready, false when the time is up.
bool PollUntil(pollfd* watched, std::size_t count, std::optional<Clock::time_point> deadline) noexcept;

} // namespace kestgps
