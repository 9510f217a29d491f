// LineOutput.h: whole lines to a descriptor.
#pragma once

#include <optional>
#include <string>

#include "tools/signals/StopSignals.h"

namespace kestgps
{

/// Standard output as a command writes it: each line goes out at once.
class LineOutput
{
public:
    /// descriptor: borrowed.
    explicit LineOutput(int descriptor) noexcept : descriptor(descriptor) {}
    /// signals: borrowed; they end a Write too, so that a reader that stands still doesn't keep the command
    /// from being stopped.
    LineOutput(int descriptor, StopSignals& signals) noexcept : descriptor(descriptor), signals(&signals) {}

    /// Writes the line and a line end.
    /// line: shorter than 4096 bytes, so that a pipe with room takes it without blocking.
    /// Result: false when the reader has gone, a stop signal came or the time was up; the line may be cut.
    /// Throws ToolError for any other failure, such as a full disk.
    bool Write(std::string line, std::optional<Clock::time_point> deadline = std::nullopt);

    /// Result: true once the reader was found gone.
    bool ReaderGone() const noexcept { return readerGone; }

private:
    bool AwaitRoom(std::optional<Clock::time_point> deadline);

    const int descriptor;           // borrowed
    StopSignals* signals = nullptr; // borrowed; null leaves them alone
    bool readerGone = false;
};

} // namespace kestgps
