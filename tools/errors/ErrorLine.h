// ErrorLine.h: a line to the user beside the output.
#pragma once

#include <cstdio>
#include <string>

namespace kestgps
{

/// Writes "kestgps: ", the text and a line end to standard error; what can't be written is lost.
inline void WriteErrorLine(const std::string& text)
{
    const std::string line = "kestgps: " + text + "\n";
    static_cast<void>(std::fputs(line.c_str(), stderr)); // there is nowhere left to complain
}

} // namespace kestgps
