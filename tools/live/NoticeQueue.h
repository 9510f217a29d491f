// NoticeQueue.h: hands notices from the reader thread to the thread that prints.
#pragma once

#include <cstddef>
#include <deque>
#include <mutex>
#include <optional>

#include "tools/live/ReceiverNotice.h"
#include "tools/waiting/WakeUp.h"

namespace kestgps
{

/// A queue with a bound, so that a reader thread never waits for slow output and memory stays small.
class NoticeQueue
{
public:
    /// About a quarter of an hour of epochs at one a second.
    static constexpr std::size_t CAPACITY = 1024;

    /// Result: false when the queue is full; the notice is then not in it. Thread: any.
    bool Push(const ReceiverNotice& notice);
    /// No more is to come. Thread: any.
    void Finish() noexcept;

    /// Result: the oldest notice; none when there is none now. Thread: any.
    std::optional<ReceiverNotice> Pop();
    /// Result: true once Finish has been called and all has been taken out. Thread: any.
    bool AtEnd() const;

    /// Result: what to poll for POLLIN; readable while there is a notice, and from Finish on. Owned here.
    int Descriptor() const noexcept { return arrival.Descriptor(); }

private:
    mutable std::mutex lock;
    std::deque<ReceiverNotice> notices; // guarded by lock
    bool finished = false;              // guarded by lock
    WakeUp arrival;
};

} // namespace kestgps
