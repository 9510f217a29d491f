#include "tools/adapting/AdaptedLog.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

#include "layers/adapter/CSentenceAdapter.h"
#include "tools/errors/ToolError.h"

namespace kestgps
{

namespace
{

constexpr std::size_t BLOCK = 4096; // [byte] read at a time

/// What an adapter makes of one block: hardly more than the block, but a GGA behind each RMC at worst.
class BlockSink final : public adapter::CSentenceSink
{
public:
    void OnSentence(const char* sentence, std::size_t length) noexcept override
    {
        std::memcpy(bytes.data() + count, sentence, length);
        count += length;
    }

    /// Result: false when the reader has gone.
    bool WriteTo(int descriptor) noexcept
    {
        for (std::size_t done = 0; done < count;) {
            const ssize_t written = write(descriptor, bytes.data() + done, count - done);
            if (written < 0 && errno != EINTR) {
                return false;
            }
            done += written > 0 ? static_cast<std::size_t>(written) : 0;
        }
        count = 0;
        return true;
    }

private:
    // A sentence is of 9 bytes at least, and with the GGA behind it of 164 at most.
    std::array<char, (BLOCK / 9 + 2) * 164> bytes;
    std::size_t count = 0;
};

} // namespace

AdaptedLog::AdaptedLog(const std::string& path) : log(open(path.c_str(), O_RDONLY | O_CLOEXEC))
{
    if (!log.IsOpen()) {
        throw ToolError("can't read " + path + ": " + ErrorText(errno));
    }
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        throw ToolError("can't adapt the sentences: " + ErrorText(errno));
    }
    reading = FileDescriptor(ends[0]);
    writing = FileDescriptor(ends[1]);
    thread = std::thread([this] { Run(); });
}

AdaptedLog::~AdaptedLog()
{
    reading.Close(); // a write fails from now on
    thread.join();
}

std::string AdaptedLog::Path() const
{
    return "/proc/self/fd/" + std::to_string(reading.Get());
}

adapter::AdapterCounts AdaptedLog::Counts() const
{
    const std::lock_guard<std::mutex> guard(lock);
    return counts;
}

int AdaptedLog::ReadError() const
{
    const std::lock_guard<std::mutex> guard(lock);
    return readError;
}

void AdaptedLog::Run() noexcept
{
    sigset_t brokenPipe;
    sigemptyset(&brokenPipe);
    sigaddset(&brokenPipe, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &brokenPipe, nullptr); // a reader that has gone isn't the process's end
    adapter::CSentenceAdapter adapter;
    BlockSink sink;
    std::array<char, BLOCK> block;
    ssize_t got = 1;
    while (got != 0) {
        do {
            got = read(log.Get(), block.data(), block.size());
        } while (got < 0 && errno == EINTR);
        const int error = got < 0 ? errno : 0;
        if (got > 0) {
            adapter.Take(block.data(), static_cast<std::size_t>(got), sink);
        } else {
            adapter.End(sink);
            got = 0;
        }
        {
            const std::lock_guard<std::mutex> guard(lock);
            counts = adapter.Counts();
            readError = error;
        }
        if (!sink.WriteTo(writing.Get())) {
            break;
        }
    }
    writing.Close();
}

} // namespace kestgps
