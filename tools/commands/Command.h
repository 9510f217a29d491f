// Command.h: one subcommand of the program.
#pragma once

namespace kestgps
{

/// A command adds itself to the command line when it is made, and does its work if that line asks for it.
class Command
{
public:
    virtual ~Command() = default;
    /// Result: whether the command line that was parsed asks for this command.
    virtual bool Chosen() const = 0;
    /// Does the work.
    /// Result: the exit status of the program. Throws std::exception, with one line for the user, on failure.
    virtual int Run() = 0;

protected:
    Command() = default;
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;
};

} // namespace kestgps
