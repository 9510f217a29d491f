#include "tools/commands/EmulateCommand.h"

#include <optional>
#include <utility>

#include <CLI/CLI.hpp>

#include "tools/drive/DemoDrive.h"
#include "tools/errors/ErrorLine.h"
#include "tools/errors/ToolError.h"
#include "tools/files/SameFile.h"
#include "tools/files/WholeFile.h"
#include "tools/options/OptionChecks.h"
#include "tools/output/LineOutput.h"
#include "tools/receiver/DeviceLink.h"
#include "tools/receiver/Emulator.h"
#include "tools/receiver/PlayingThread.h"
#include "tools/signals/StopSignals.h"

namespace kestgps
{

namespace
{

std::string ReadPlayable(const std::string& path)
{
    RefuseAsStandardOutput(path);
    std::string text = ReadWholeFile(path);
    if (text.empty()) {
        throw ToolError(path + " is empty; there is nothing to play");
    }
    return text;
}

void PrintSummary(const PlayedCount& played)
{
    WriteErrorLine("played " + std::to_string(played.Bytes()) + " bytes, " +
                   std::to_string(played.Sentences()) + " sentences, " + std::to_string(played.Gga()) +
                   " GGA");
}

} // namespace

EmulateCommand::EmulateCommand(CLI::App& app)
{
    constexpr double PERIOD_MOST = 3600; // [s]
    CLI::App* const emulate = app.add_subcommand("emulate", "Play NMEA sentences on a pseudo-terminal");
    emulate->add_option("FILE", file, "Sentences to play; without it the demonstration drive")
        ->check(FileName());
    emulate->add_option("--baud", line.baudRate, "Pace of the line in bit/s (9600)")
        ->transform(Within(BAUD_LEAST, BAUD_MOST));
    emulate->add_option("--period", line.period, "Seconds from burst to burst (1)")
        ->transform(Within(0, PERIOD_MOST));
    emulate->add_option("--factor", line.factor, "How many times faster than that (1)")
        ->transform(Within(FACTOR_LEAST, FACTOR_MOST));
    emulate->add_flag("--loop", loop, "Begin again at the end");
    emulate->add_option("--link", link, "Another name for the device, until the end; nothing may have it")
        ->check(FileName());
    command = emulate;
}

bool EmulateCommand::Chosen() const
{
    return command->parsed();
}

int EmulateCommand::Run()
{
    std::string text = TextToPlay();
    StopSignals signals;
    LineOutput output(STDOUT_FILENO, signals);
    Emulator emulator(std::move(text), line, loop ? Emulator::REPEAT::FOR_EVER : Emulator::REPEAT::ONCE);
    std::optional<DeviceLink> otherName;
    if (!link.empty()) {
        otherName.emplace(emulator.DevicePath(), link);
    }
    output.Write(emulator.DevicePath()); // nobody has to read it
    WakeUp ended;
    {
        PlayingThread player(emulator, [&ended] { ended.Set(); });
        signals.Wait(ended.Descriptor(), POLLIN, std::nullopt);
        player.Finish();
    }
    PrintSummary(emulator.Played());
    return 0;
}

std::string EmulateCommand::TextToPlay() const
{
    return file.empty() ? DemoDrive() : ReadPlayable(file);
}

} // namespace kestgps
