// SameFile.h: keeps a command from writing over what it reads.
#pragma once

#include <string>

#include <sys/stat.h>

namespace kestgps
{

/// Result: whether both are one regular file, under whatever names; false when there is nothing at the path.
bool IsSameFile(const struct stat& file, const std::string& path) noexcept;

/// Throws ToolError when standard output goes to the file that is read.
void RefuseAsStandardOutput(const std::string& input);

} // namespace kestgps
