// CStdioFile.h: a C stream that closes itself.
#pragma once

#include <cstdio>
#include <memory>

struct CloseFile {
    void operator()(std::FILE* file) const noexcept { static_cast<void>(std::fclose(file)); }
};

/// Null is "no file"; leaving is closing, and closing writes out what the stream holds.
using CStdioFile = std::unique_ptr<std::FILE, CloseFile>;
