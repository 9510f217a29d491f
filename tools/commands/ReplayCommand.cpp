#include "tools/commands/ReplayCommand.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

#include <CLI/CLI.hpp>
#include <unistd.h>

#include "GpsLib/Kest_GPS.h"
#include "tools/adapting/AdaptedLog.h"
#include "tools/adapting/AdapterText.h"
#include "tools/errors/ErrorLine.h"
#include "tools/errors/ToolError.h"
#include "tools/files/SameFile.h"
#include "tools/options/OptionChecks.h"
#include "tools/options/SmoothOption.h"
#include "tools/output/EpochLine.h"
#include "tools/output/LineOutput.h"
#include "tools/output/ProgressLine.h"
#include "tools/waiting/Pace.h"

namespace kestgps
{

namespace
{

/// Reads on to the next record. A line that begins with NUL ends a call as the end of the file does, so the
/// end is believed only when it comes again and again; a block of zeros that a power cut left is shorter than
/// that.
bool NextRecord(GPS::CGPSLogDevice& log, _GPS_Data& fix)
{
    constexpr int ENDS_BELIEVED = 65536;
    for (int ends = 0; ends < ENDS_BELIEVED; ++ends) {
        if (log.GetGPSData(fix)) {
            return true;
        }
    }
    return false;
}

bool HasSentences(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::string latest = "   ";
    for (std::istreambuf_iterator<char> byte(file), end; byte != end && latest != "$GP"; ++byte) {
        latest = {latest[1], latest[2], *byte};
    }
    return latest == "$GP";
}

} // namespace

ReplayCommand::ReplayCommand(CLI::App& app)
{
    constexpr double RATE_LEAST = 0.001;
    constexpr double RATE_MOST = 1e6;
    CLI::App* const replay = app.add_subcommand("replay", "Print the fixes of a log");
    replay->add_option("FILE", file, "Log of NMEA sentences; must be there")
        ->check(FileName()); // see TellFileFromModel
    AddSmoothOption(*replay, smooth);
    replay->add_option("--rate", rate, "Epochs a second (as fast as it goes)")
        ->transform(Within(RATE_LEAST, RATE_MOST));
    replay->add_flag("--as-is", asIs, "Leave the sentences alone: talker GP in the older form counts");
    replay->callback([this] { TellFileFromModel(); });
    command = replay;
}

/// An option whose value may be missing takes a FILE behind it for one, so FILE is asked for here.
void ReplayCommand::TellFileFromModel()
{
    if (file.empty() && !IsModel(smooth)) {
        file = std::exchange(smooth, smooth.empty() ? "" : DEFAULT_MODEL);
    }
    if (file.empty()) {
        throw CLI::RequiredError("FILE");
    }
    CheckModel(*command, smooth);
}

bool ReplayCommand::Chosen() const
{
    return command->parsed();
}

int ReplayCommand::Run()
{
    RefuseAsStandardOutput(file);
    if (asIs) {
        Replay(file, nullptr);
    } else {
        const AdaptedLog adapted(file);
        Replay(adapted.Path(), &adapted);
        if (DidAnything(adapted.Counts())) {
            WriteErrorLine(SentencesText(adapted.Counts()));
        }
    }
    return 0;
}

void ReplayCommand::Replay(const std::string& path, const AdaptedLog* adapted) const
{
    GPS::CGPSLogDevice log;
    std::string opened = path;
    if (!log.OpenLogFileForRead(opened.data())) {
        throw ToolError("can't read " + file + ": " + ErrorText(errno));
    }
    SwitchSmoothing(log, smooth);
    if (PrintEpochs(log, adapted) == 0) {
        RefuseOtherFiles(adapted);
    }
    const int error = adapted != nullptr ? adapted->ReadError() : 0;
    if (error != 0) {
        throw ToolError("can't read " + file + " to its end: " + ErrorText(error));
    }
}

std::uint64_t ReplayCommand::PrintEpochs(GPS::CGPSLogDevice& log, const AdaptedLog* adapted) const
{
    LineOutput output(STDOUT_FILENO);
    ProgressLine progress(file);
    Pace pace(rate);
    std::uint64_t epochs = 0;
    for (_GPS_Data fix; NextRecord(log, fix); progress.Show(epochs)) {
        if (++epochs == EPOCHS_TO_KNOW && adapted != nullptr) {
            WriteErrorLine(ReceiverText(adapted->Counts()));
        }
        pace.AwaitNext();
        if (!output.Write(EpochLine(fix))) {
            break;
        }
    }
    return epochs;
}

/// Called when no epoch came out: says why that is.
void ReplayCommand::RefuseOtherFiles(const AdaptedLog* adapted) const
{
    if (!std::filesystem::is_regular_file(file)) {
        throw ToolError(file + " gave no epoch; name a log file");
    }
    if (adapted != nullptr) {
        throw ToolError(file + (HasReceiver(adapted->Counts())
                                    ? " holds no fix with a position; there is nothing to print"
                                    : " is no NMEA log: it holds no sentence of a satellite receiver"));
    }
    if (!HasSentences(file)) {
        throw ToolError(file + " is no NMEA log: it holds no sentence of talker GP");
    }
    throw ToolError(file + " holds no GGA sentence of talker GP with a position; there is nothing to print");
}

} // namespace kestgps
