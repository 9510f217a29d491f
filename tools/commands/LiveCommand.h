// LiveCommand.h: "kestgps live", the fixes of a receiver as they come.
#pragma once

#include "tools/commands/Command.h"
#include "tools/live/LiveOptions.h"

namespace CLI
{
class App;
class Option;
} // namespace CLI

namespace kestgps
{

class LiveCommand final : public Command
{
public:
    /// app: borrowed.
    explicit LiveCommand(CLI::App& app);

    bool Chosen() const override;
    int Run() override;

private:
    /// Result: the option of the demonstration; owned by `live`.
    CLI::Option* AddSourceOptions(CLI::App& live);
    void AddPortOptions(CLI::App& live, CLI::Option& demo);
    void AddOutputOptions(CLI::App& live);
    void CheckSource() const;

    const CLI::App* command; // borrowed
    LiveOptions options;
};

} // namespace kestgps
