// LiveCommand.h: "kestgps live", the fixes of a receiver as they come.
#pragma once

#include "tools/Command.h"
#include "tools/LiveOptions.h"

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
