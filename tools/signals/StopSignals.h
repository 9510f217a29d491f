// StopSignals.h: the signals that ask for an end as something to wait for beside other things.
#pragma once

#include <optional>

#include "tools/waiting/FileDescriptor.h"
#include "tools/waiting/PollUntil.h"

namespace kestgps
{

/// From its making on the signals (StopRequests) are held back and end a Wait instead of the process. For
/// commands that go on until they are stopped. Made before any thread is, so that all of them inherit this;
/// it lasts until the process ends.
class StopSignals
{
public:
    enum class WAIT { READY, TIME_OUT, STOPPED };

    /// Throws ToolError when the system has no descriptor to give.
    StopSignals();

    /// Waits until the descriptor is ready for the poll events, the time is up or a signal comes; the signal
    /// goes first and ends this one Wait alone.
    /// descriptor: borrowed. deadline: none waits for ever. Thread: one at a time.
    WAIT Wait(int descriptor, short events, std::optional<Clock::time_point> deadline);

    /// Forgets the signals that have come: one wish to stop often comes as several of them.
    void Forget() noexcept;

private:
    bool TakeOne() noexcept;

    FileDescriptor signals;
};

} // namespace kestgps
