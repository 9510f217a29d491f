// WakeUp.h: lets one thread wake another that waits in a poll.
#pragma once

#include "tools/waiting/FileDescriptor.h"

namespace kestgps
{

/// A flag that can be polled.
class WakeUp
{
public:
    /// Throws ToolError when the system has no descriptor to give.
    WakeUp();

    /// From here on the descriptor is readable. Thread: any.
    void Set() noexcept;
    /// From here on it isn't, until the next Set. Thread: any.
    void Clear() noexcept;

    /// Result: what to poll for POLLIN; owned here.
    int Descriptor() const noexcept { return event.Get(); }

private:
    FileDescriptor event;
};

} // namespace kestgps
