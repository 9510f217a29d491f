#include "tools/live/RawRecording.h"

#include <cerrno>
#include <string_view>

#include <fcntl.h>

#include "tools/errors/ErrorLine.h"
#include "tools/errors/ToolError.h"
#include "tools/signals/SignalEnd.h"

namespace kestgps
{

namespace
{

int OpenToAppend(const std::string& path)
{
    const StopRequestsLetIn opening; // a pipe waits for its reader
    const int file = open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_NOCTTY | O_CLOEXEC, 0666);
    if (file < 0) {
        throw ToolError("can't write the recording " + path + ": " + ErrorText(errno) +
                        "; choose another file");
    }
    return file;
}

} // namespace

RawRecording::RawRecording(const std::string& path) : path(path), file(OpenToAppend(path))
{
    waiting.reserve(CAPACITY);
    writer = std::thread([this] { Run(); });
}

RawRecording::~RawRecording()
{
    Finish();
}

void RawRecording::Take(const char* bytes, std::size_t length) noexcept
{
    const std::lock_guard<std::mutex> guard(lock);
    if (ended) {
        return; // told when it ended
    }
    if (waiting.size() + length > CAPACITY) {
        lost += length;
        return;
    }
    waiting.append(bytes, length);
    change.notify_one();
}

bool RawRecording::Finish()
{
    {
        const std::lock_guard<std::mutex> guard(lock);
        ended = true;
        change.notify_one();
    }
    if (writer.joinable()) {
        writer.join();
    }
    return whole;
}

void RawRecording::Run()
{
    std::string taken; // swapped with the other, so neither is ever made anew
    taken.reserve(CAPACITY);
    std::unique_lock<std::mutex> guard(lock);
    while (true) {
        change.wait(guard, [this] { return ended || !waiting.empty(); });
        if (waiting.empty()) {
            return;
        }
        taken.swap(waiting);
        guard.unlock();
        const bool written = Write(taken);
        const int error = errno;
        taken.clear();
        guard.lock();
        if (lost > 0) {
            WriteErrorLine(std::to_string(lost) + " bytes are not in " + path + ", the disk is too slow");
            lost = 0;
            whole = false;
        }
        if (!written) {
            WriteErrorLine("the recording " + path + " ends here: " + ErrorText(error) +
                           "; make room and start anew");
            ended = true;
            whole = false;
            return;
        }
    }
}

bool RawRecording::Write(const std::string& bytes) const noexcept
{
    std::string_view left = bytes;
    while (!left.empty()) {
        const ssize_t count = write(file.Get(), left.data(), left.size());
        if (count > 0) {
            left.remove_prefix(static_cast<std::size_t>(count));
        } else if (count == 0 || errno != EINTR) {
            return false;
        }
    }
    return true;
}

} // namespace kestgps
