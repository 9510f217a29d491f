#include "layers/adapter/AdaptDescriptor.h"

#include <cerrno>
#include <cstring>

#include <unistd.h>

#include "layers/adapter/CSentenceAdapter.h"

namespace adapter
{

namespace
{

constexpr std::size_t BLOCK = 8192; // [byte]

/// Gathers sentences to blocks. After a failure it takes no more.
class CDescriptorSink final : public CSentenceSink
{
public:
    explicit CDescriptorSink(int to) noexcept : to(to) {}

    void OnSentence(const char* sentence, std::size_t length) noexcept override
    {
        if (count + length > BLOCK) {
            Flush();
        }
        std::memcpy(block + count, sentence, length);
        count += length;
    }

    /// Result: false when not all has been written; errno is then `error`.
    bool Flush() noexcept
    {
        for (std::size_t done = 0; done < count && error == 0;) {
            const ssize_t written = write(to, block + done, count - done);
            if (written >= 0) {
                done += static_cast<std::size_t>(written);
            } else if (errno != EINTR) {
                error = errno;
            }
        }
        count = 0;
        return error == 0;
    }

    int Error() const noexcept { return error; }

private:
    int to;
    int error = 0;
    std::size_t count = 0;
    char block[BLOCK];
};

} // namespace

ADAPTLOGRESULT AdaptDescriptor(int from, int to, CSentenceAdapter& adapter) noexcept
{
    CDescriptorSink sink(to);
    char bytes[BLOCK];
    while (sink.Error() == 0) {
        const ssize_t got = read(from, bytes, sizeof bytes);
        if (got == 0) {
            adapter.End(sink);
            sink.Flush();
            break;
        }
        if (got > 0) {
            adapter.Take(bytes, static_cast<std::size_t>(got), sink);
        } else if (errno != EINTR) {
            return ADAPTLOG_NOT_READ;
        }
    }
    errno = sink.Error();
    return errno == 0 ? ADAPTLOG_DONE : ADAPTLOG_NOT_WRITTEN;
}

} // namespace adapter
