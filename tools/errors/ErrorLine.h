// ErrorLine.h: a line to the user beside the output.
#pragma once

#include <algorithm>
#include <cstdio>
#include <string>

namespace kestgps
{

/// Writes "kestgps: ", the text and a line end to standard error; what can't be written is lost. It stays one
/// line, with "?" for the control characters that a file name may hold.
inline void WriteErrorLine(std::string text)
{
    std::replace_if(
        text.begin(), text.end(), [](char byte) { return byte == '\x7F' || (byte >= '\0' && byte < ' '); },
        '?');
    const std::string line = "kestgps: " + text + "\n";
    static_cast<void>(std::fputs(line.c_str(), stderr)); // there is nowhere left to complain
}

} // namespace kestgps
