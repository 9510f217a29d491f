#include "tools/waiting/WakeUp.h"

#include <cerrno>

#include <sys/eventfd.h>

#include "tools/errors/ToolError.h"

namespace kestgps
{

WakeUp::WakeUp() : event(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    if (!event.IsOpen()) {
        throw ToolError("no descriptor left: " + ErrorText(errno));
    }
}

void WakeUp::Set() noexcept
{
    eventfd_write(event.Get(), 1);
}

void WakeUp::Clear() noexcept
{
    eventfd_t count = 0;
    eventfd_read(event.Get(), &count);
}

} // namespace kestgps
