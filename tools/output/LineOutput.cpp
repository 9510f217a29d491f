#include "tools/output/LineOutput.h"

#include <cerrno>
#include <string_view>

#include <unistd.h>

#include "tools/errors/ToolError.h"

namespace kestgps
{

bool LineOutput::Write(std::string line, std::optional<Clock::time_point> deadline)
{
    line += '\n';
    std::string_view left = line;
    while (!left.empty()) {
        if (!AwaitRoom(deadline)) {
            return false;
        }
        const ssize_t written = write(descriptor, left.data(), left.size());
        if (written >= 0) {
            left.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno == EPIPE) {
            readerGone = true;
            return false;
        } else if (errno != EINTR && errno != EAGAIN) {
            throw ToolError("can't write the output: " + ErrorText(errno));
        }
    }
    return true;
}

bool LineOutput::AwaitRoom(std::optional<Clock::time_point> deadline)
{
    if (signals != nullptr) {
        return signals->Wait(descriptor, POLLOUT, deadline) == StopSignals::WAIT::READY;
    }
    pollfd watched{descriptor, POLLOUT, 0};
    return PollUntil(&watched, 1, deadline);
}

} // namespace kestgps
