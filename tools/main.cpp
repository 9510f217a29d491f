// main.cpp: kestgps, the library's tool on the command line.
#include <csignal>
#include <exception>
#include <string>

#include <CLI/CLI.hpp>
#include <fcntl.h>

#include "tools/commands/EmulateCommand.h"
#include "tools/commands/LiveCommand.h"
#include "tools/commands/ReplayCommand.h"
#include "tools/commands/SimulateCommand.h"
#include "tools/errors/ErrorLine.h"
#include "tools/signals/SignalEnd.h"
#include "tools/waiting/FileDescriptor.h"

namespace
{

constexpr int FAILED = 1;
constexpr int BAD_USAGE = 2;

int Fail(const std::string& message, int status)
{
    kestgps::WriteErrorLine(message);
    return status;
}

/// A standard stream that came closed would give its number to the next descriptor, the receiver's at worst.
void FillStandardStreams()
{
    kestgps::FileDescriptor filler(open("/dev/null", O_RDWR));
    while (filler.IsOpen() && filler.Get() <= STDERR_FILENO) {
        filler.Release();
        filler = kestgps::FileDescriptor(open("/dev/null", O_RDWR));
    }
}

int RunCommandLine(int argc, char** argv)
{
    CLI::App app("Fixes of GPS receivers that speak NMEA 0183", "kestgps");
    app.require_subcommand(0, 1);
    kestgps::LiveCommand live(app);
    kestgps::EmulateCommand emulate(app);
    kestgps::ReplayCommand replay(app);
    kestgps::SimulateCommand simulate(app);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& help) {
        return app.exit(help);
    } catch (const CLI::ParseError& error) {
        return Fail(std::string(error.what()) + "; see --help", BAD_USAGE);
    }
    kestgps::Command* const commands[] = {&live, &emulate, &replay, &simulate};
    for (kestgps::Command* const command : commands) {
        if (command->Chosen()) {
            return command->Run();
        }
    }
    return Fail("say what to do: live, emulate, replay or simulate; see --help", BAD_USAGE);
}

} // namespace

int main(int argc, char** argv)
{
    try {
        kestgps::EndOnStopRequests();
        std::signal(SIGPIPE, SIG_IGN); // NOLINT(cert-err33-c): a write says it too, and this one can't fail
        FillStandardStreams();
        return RunCommandLine(argc, argv);
    } catch (const std::exception& error) {
        return Fail(error.what(), FAILED);
    }
}
