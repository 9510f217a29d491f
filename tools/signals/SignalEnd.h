// SignalEnd.h: how a signal ends a command in the middle of its work.
#pragma once

#include <csignal>

namespace kestgps
{

/// Result: what asks a command to stop: SIGINT, SIGTERM and, unless it is ignored as under nohup, SIGHUP.
sigset_t StopRequests() noexcept;

/// From here on each of them ends the process wherever it is: a line on standard error says so, and the exit
/// status is 128 and the signal's number. A command that is meant to be stopped holds them back
/// (StopSignals).
void EndOnStopRequests() noexcept;

/// From here on they wait, on the calling thread and on those that it makes.
/// Result: which they are.
sigset_t HoldBackStopRequests() noexcept;

/// While this object lives, those that were held back end the process again: for a call that may wait for
/// ever. It is made and goes on one thread.
class StopRequestsLetIn
{
public:
    StopRequestsLetIn() noexcept;
    ~StopRequestsLetIn();
    StopRequestsLetIn(const StopRequestsLetIn&) = delete;
    StopRequestsLetIn& operator=(const StopRequestsLetIn&) = delete;
};

/// Names what such an end removes, because it isn't whole yet.
/// path: borrowed until the next call; null removes nothing. Thread: one at a time.
void RemoveWhenStopped(const char* path) noexcept;

} // namespace kestgps
