// WholeFile.h: a file as one text.
#pragma once

#include <string>

namespace kestgps
{

/// Result: the bytes of the file. Throws ToolError, with path and reason, when it can't be read.
std::string ReadWholeFile(const std::string& path);

} // namespace kestgps
