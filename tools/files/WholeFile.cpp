#include "tools/files/WholeFile.h"

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

#include "tools/errors/ToolError.h"
#include "tools/waiting/FileDescriptor.h"

namespace kestgps
{

std::string ReadWholeFile(const std::string& path)
{
    const FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    std::string text;
    char chunk[65536];
    ssize_t count = file.IsOpen() ? read(file.Get(), chunk, sizeof chunk) : -1;
    for (; count > 0; count = read(file.Get(), chunk, sizeof chunk)) {
        text.append(chunk, static_cast<std::size_t>(count));
    }
    if (count < 0) {
        throw ToolError("can't read " + path + ": " + ErrorText(errno));
    }
    return text;
}

} // namespace kestgps
