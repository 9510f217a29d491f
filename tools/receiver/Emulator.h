// Emulator.h: a receiver made of a text, on a pseudo-terminal.
#pragma once

#include <string>
#include <string_view>

#include "tools/receiver/LinePace.h"
#include "tools/receiver/PlayedCount.h"
#include "tools/receiver/PseudoTerminal.h"
#include "tools/waiting/WakeUp.h"

namespace kestgps
{

/// Plays a text byte for byte, burst by burst, at the pace of a serial line. Nothing is lost on a slow
/// reader: the line then waits for it, which a real one wouldn't.
class Emulator
{
public:
    enum class REPEAT { ONCE, FOR_EVER };

    /// The device is there from here on.
    /// text: not empty when it is to repeat. Throws ToolError when the system has no pseudo-terminal to give.
    Emulator(std::string text, const LineSettings& settings, REPEAT repeat = REPEAT::ONCE);

    /// What the reader opens, such as "/dev/pts/5".
    const std::string& DevicePath() const noexcept { return terminal.Path(); }

    /// Plays until the end of the text or until Stop, and then hangs up. At the end it first waits until
    /// everything has been read, and half a second more for the reader to make something of it; with nobody
    /// to read it waits until Stop. Called once. Throws ToolError when the line breaks.
    void Play();

    /// Makes Play return soon; a Play that is still to come returns at once. Thread: any.
    void Stop() noexcept { stop.Set(); }

    /// What has been handed over. Thread: that of Play, or any once it has returned.
    const PlayedCount& Played() const noexcept { return played; }

private:
    bool PlayBurst(std::string_view burst, LinePace& pace);
    bool HandOver(std::string_view slice);
    bool RestUntil(Clock::time_point deadline) noexcept;
    void AwaitDrained() noexcept;

    const std::string text;
    const LineSettings settings;
    const REPEAT repeat;
    PseudoTerminal terminal;
    WakeUp stop; // set by any thread, polled by Play
    PlayedCount played;
};

} // namespace kestgps
