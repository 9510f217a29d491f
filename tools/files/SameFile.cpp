#include "tools/files/SameFile.h"

#include <unistd.h>

#include "tools/errors/ToolError.h"

namespace kestgps
{

bool IsSameFile(const struct stat& file, const std::string& path) noexcept
{
    struct stat other = {};
    return S_ISREG(file.st_mode) && stat(path.c_str(), &other) == 0 && file.st_dev == other.st_dev &&
           file.st_ino == other.st_ino;
}

void RefuseAsStandardOutput(const std::string& input)
{
    struct stat output = {};
    if (fstat(STDOUT_FILENO, &output) == 0 && IsSameFile(output, input)) {
        throw ToolError("standard output goes to " + input + " itself; send it to another file");
    }
}

} // namespace kestgps
