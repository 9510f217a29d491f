// ProgressLine.h: how far a long work has come, for someone who watches.
#pragma once

#include <cstdint>
#include <string>

#include "tools/waiting/PollUntil.h"

namespace kestgps
{

/// A line on standard error that writes over itself, about twice a second, as does whatever comes after it;
/// only for a long file, and only when standard error is a terminal.
class ProgressLine
{
public:
    /// file: path of what is worked on.
    explicit ProgressLine(const std::string& file);
    /// Clears the line.
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    void Show(std::uint64_t epochs);

private:
    bool wanted;
    bool shown = false;
    Clock::time_point due;
};

} // namespace kestgps
