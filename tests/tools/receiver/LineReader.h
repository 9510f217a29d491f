// LineReader.h: a plain program at the other end of a serial line.
#pragma once

#include <algorithm>
#include <string>

#include <fcntl.h>
#include <unistd.h>

#include "tools/waiting/FileDescriptor.h"

class LineReader
{
public:
    explicit LineReader(const std::string& path) : line(open(path.c_str(), O_RDONLY | O_NOCTTY | O_CLOEXEC))
    {
    }

    bool IsOpen() const { return line.IsOpen(); }

    /// Result: so many bytes, or fewer if the line hangs up before.
    std::string Read(std::size_t length)
    {
        std::string text;
        char chunk[4096];
        while (text.size() < length) {
            const ssize_t count = read(line.Get(), chunk, std::min(sizeof chunk, length - text.size()));
            if (count <= 0) {
                break;
            }
            text.append(chunk, static_cast<std::size_t>(count));
        }
        return text;
    }
    std::string ReadToEnd() { return Read(std::string::npos); }

private:
    const kestgps::FileDescriptor line;
};
