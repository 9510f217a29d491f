// EmulateCommand.h: "kestgps emulate", a receiver for programs that have none.
#pragma once

#include <string>

#include "tools/commands/Command.h"
#include "tools/receiver/LinePace.h"

namespace CLI
{
class App;
}

namespace kestgps
{

/// Plays a file or the demonstration drive on a pseudo-terminal, whose path is the first line of standard
/// output.
class EmulateCommand final : public Command
{
public:
    /// app: borrowed.
    explicit EmulateCommand(CLI::App& app);

    bool Chosen() const override;
    int Run() override;

private:
    std::string TextToPlay() const;

    const CLI::App* command; // borrowed
    std::string file;        // empty plays the demonstration drive
    std::string link;        // empty makes none
    LineSettings line;
    bool loop = false;
};

} // namespace kestgps
