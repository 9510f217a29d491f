#include "layers/adapter/AdaptLog.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "layers/adapter/AdaptDescriptor.h"
#include "layers/adapter/CFileInPlace.h"
#include "layers/adapter/CSentenceAdapter.h"

namespace adapter
{

namespace
{

/// An open file to be read, closed at the end.
class CInput
{
public:
    explicit CInput(const char* path) noexcept : descriptor(open(path, O_RDONLY | O_CLOEXEC)) {}
    CInput(const CInput&) = delete;
    CInput& operator=(const CInput&) = delete;
    ~CInput()
    {
        const int error = errno;
        if (descriptor >= 0) {
            close(descriptor);
        }
        errno = error;
    }

    const int descriptor;
};

/// Result: what failed, with errno.
ADAPTLOGRESULT Adapt(const char* log, const char* copy, CSentenceAdapter& adapter) noexcept
{
    const CInput input(log);
    struct stat from = {};
    if (input.descriptor < 0 || fstat(input.descriptor, &from) != 0) {
        return ADAPTLOG_NOT_READ;
    }
    CFileInPlace output;
    if (!output.Locate(copy)) {
        return ADAPTLOG_NOT_WRITTEN;
    }
    if (output.Is(from)) {
        errno = EEXIST;
        return ADAPTLOG_SAME_FILE;
    }
    if (!output.Create()) {
        return ADAPTLOG_NOT_WRITTEN;
    }
    const ADAPTLOGRESULT result = AdaptDescriptor(input.descriptor, output.Descriptor(), adapter);
    return result == ADAPTLOG_DONE && !output.Place() ? ADAPTLOG_NOT_WRITTEN : result;
}

} // namespace

AdaptedLog AdaptLog(const char* log, const char* copy, const Talkers& talkers) noexcept
{
    CSentenceAdapter adapter(talkers);
    AdaptedLog adapted;
    adapted.result = Adapt(log, copy, adapter);
    adapted.error = adapted.result == ADAPTLOG_DONE ? 0 : errno;
    adapted.counts = adapter.Counts();
    return adapted;
}

} // namespace adapter
