#include "tools/commands/LiveCommand.h"

#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "tools/live/LiveRun.h"
#include "tools/options/OptionChecks.h"
#include "tools/options/SmoothOption.h"

namespace kestgps
{

LiveCommand::LiveCommand(CLI::App& app)
{
    CLI::App* const live = app.add_subcommand("live", "Print the fixes of a receiver as they come");
    AddPortOptions(*live, *AddSourceOptions(*live));
    AddOutputOptions(*live);
    live->callback([this, live] {
        CheckSource();
        CheckModel(*live, options.smooth);
    });
    command = live;
}

CLI::Option* LiveCommand::AddSourceOptions(CLI::App& live)
{
    constexpr double PORT_MOST = 9;
    live.add_option("--port", options.port, "Serial port COMn, that is /dev/ttyS(n-1)")
        ->transform(Within(1, PORT_MOST));
    live.add_option("--device", options.device, "Path of a serial device, such as /dev/ttyUSB0")
        ->check(FileName());
    CLI::Option* const demo = live.add_flag("--demo", options.demo, "The demonstration drive, no receiver");
    live.add_option("--factor", options.factor, "How many times faster the demonstration goes (12)")
        ->transform(Within(FACTOR_LEAST, FACTOR_MOST))
        ->needs(demo);
    return demo;
}

void LiveCommand::AddPortOptions(CLI::App& live, CLI::Option& demo)
{
    live.add_option("--baud", options.baudRate, "bit/s (9600)")->transform(Within(BAUD_LEAST, BAUD_MOST));
    live.add_option("--parity", options.parity, "none (default), odd, even, mark, space")
        ->check(CLI::IsMember(std::vector<std::string>{"none", "odd", "even", "mark", "space"}))
        ->excludes(&demo); // a pseudo-terminal has neither parity nor fewer bits
    live.add_option("--bits", options.dataBits, "Data bits (8)")->transform(Within(5, 8))->excludes(&demo);
    live.add_option("--stop", options.stopBits, "Stop bits (1)")->transform(Within(1, 2));
    live.add_flag("--as-is", options.asIs, "Leave the sentences alone: talker GP in the older form counts");
    live.add_flag("--prompt,!--no-prompt", options.prompt,
                  "Tell a fix as soon as it has come (default); --no-prompt: when the receiver pauses");
}

void LiveCommand::AddOutputOptions(CLI::App& live)
{
    constexpr double SECONDS_LEAST = 0.01;
    constexpr double SECONDS_MOST = 31536000; // a year
    constexpr double EPOCHS_MOST = 1e9;
    live.add_option("--seconds", options.seconds, "End after so many seconds")
        ->transform(Within(SECONDS_LEAST, SECONDS_MOST));
    live.add_option("--epochs", options.epochs, "End after so many epochs")
        ->transform(Within(1, EPOCHS_MOST));
    live.add_flag("--events", options.events, "Print the events too");
    live.add_flag("--state", options.state, "Add how speed and heading behave");
    AddSmoothOption(live, options.smooth);
    live.add_option("--log", options.log,
                    "Write the sentences to this file; one that is there is appended to")
        ->check(FileName());
    live.add_option("--raw", options.raw,
                    "Write the bytes as they come to this file; one that is there is appended to")
        ->check(FileName());
}

void LiveCommand::CheckSource() const
{
    const int sources =
        (options.port != 0 ? 1 : 0) + (options.device.empty() ? 0 : 1) + (options.demo ? 1 : 0);
    if (sources != 1) {
        throw CLI::ValidationError("live needs one of --port N, --device PATH and --demo");
    }
}

bool LiveCommand::Chosen() const
{
    return command->parsed();
}

int LiveCommand::Run()
{
    return LiveRun(options).Run();
}

} // namespace kestgps
