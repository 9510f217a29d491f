// OutputFile.h: a file that a command makes, there only when it is whole.
#pragma once

#include <string>
#include <string_view>

#include <sys/stat.h>

#include "tools/waiting/FileDescriptor.h"

namespace kestgps
{

/// Gathers its bytes in a file beside the one that is named and puts it in that one's place when it is whole;
/// a file that is there keeps its content until then, and its mode and owner for good. Symbolic links are
/// followed.
///
/// What is no regular file (a pipe, a device), and a name of an open descriptor such as /dev/stdout, is
/// written straight, each Write at once.
class OutputFile
{
public:
    /// input: path of what is read meanwhile, which is never written over.
    /// Throws ToolError when the two are one file, or `path` can't be written.
    OutputFile(const std::string& path, const std::string& input);
    /// Without Finish everything is as it was, but for what was written straight.
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// Throws ToolError, with path and reason, when it can't be written.
    void Write(std::string_view bytes);
    /// Puts the file in its place. Throws ToolError when that fails. Called once, last.
    void Finish();

private:
    void OpenBeside(const struct stat* there);
    void Flush();
    [[noreturn]] void Fail(const std::string& what = {}) const;

    const std::string name; // as the user wrote it
    std::string target;     // links followed
    std::string temporary;  // beside the target; empty when it is written straight
    FileDescriptor file;
    std::string held; // bytes still to be written
};

} // namespace kestgps
