#include "tools/live/LiveRun.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "GpsLib/contracts/WinSerial.h"
#include "layers/platform/PortMap.h"
#include "tools/adapting/AdapterText.h"
#include "tools/drive/DemoDrive.h"
#include "tools/errors/ErrorLine.h"
#include "tools/errors/ToolError.h"
#include "tools/files/SameFile.h"
#include "tools/live/PortFailure.h"
#include "tools/options/SmoothOption.h"
#include "tools/output/EpochLine.h"
#include "tools/signals/SignalEnd.h"

namespace kestgps
{

namespace
{

constexpr std::uint32_t FIRST_PORT = 1; // stands for a device that is named by its path

constexpr std::array<std::string_view, 5> PARITIES = {"none", "odd", "even", "mark", "space"}; // by value

std::uint32_t ParityValue(std::string_view word)
{
    return static_cast<std::uint32_t>(std::find(PARITIES.begin(), PARITIES.end(), word) - PARITIES.begin());
}

std::string SettingsText(const LiveOptions& options)
{
    return "--baud " + std::to_string(options.baudRate) + " --parity " + options.parity + " --bits " +
           std::to_string(options.dataBits) + " --stop " + std::to_string(options.stopBits);
}

std::optional<Clock::time_point> Deadline(double seconds)
{
    if (seconds <= 0.0) {
        return std::nullopt;
    }
    return Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
}

} // namespace

LiveRun::LiveRun(const LiveOptions& options)
    : options(options), output(STDOUT_FILENO, signals), tap(device, queue, {options.events, options.epochs})
{
}

LiveRun::~LiveRun()
{
    device.CloseGPS();
}

int LiveRun::Run()
{
    if (options.demo) {
        LineSettings line;
        line.baudRate = options.baudRate;
        line.factor = options.factor;
        emulator.emplace(DemoDrive(), line);
    }
    OpenReceiver();
    StartLog();
    StartDemo();
    deadline = Deadline(options.seconds);
    PrintNotices();
    return Finish();
}

std::string LiveRun::DevicePath() const
{
    return emulator ? emulator->DevicePath() : options.device;
}

std::uint32_t LiveRun::Port() const noexcept
{
    return options.port != 0 ? options.port : FIRST_PORT;
}

void LiveRun::AssignPort()
{
    platform::PortOptions asked;
    asked.adapt = !options.asIs;
    asked.prompt = options.prompt;
    if (!options.raw.empty()) {
        RefuseAsStandardOutput(options.raw);
        raw.emplace(options.raw);
        asked.tap = [this](const char* bytes, std::size_t length) { raw->Take(bytes, length); };
    }
    platform::AssignPort(Port(), options.port != 0 ? platform::PortPath(Port()) : DevicePath(), asked);
}

void LiveRun::OpenReceiver()
{
    AssignPort();
    device.SetGPSCOMParam(Port(), options.baudRate, ParityValue(options.parity), options.dataBits,
                          options.stopBits == 2 ? TWOSTOPBITS : ONESTOPBIT);
    SwitchSmoothing(device, options.smooth);
    if (!device.OpenGPS()) {
        throw ToolError(WhyPortFailed(platform::PortPath(Port()), SettingsText(options)));
    }
}

void LiveRun::StartLog()
{
    RefuseAsStandardOutput(options.log);
    struct stat recording = {};
    if (stat(options.raw.c_str(), &recording) == 0 && IsSameFile(recording, options.log)) {
        throw ToolError("the bytes as they come go to " + options.log + " too; choose another file for one");
    }
    if (options.log.empty()) {
        return;
    }
    std::string path = options.log;
    const StopRequestsLetIn opening; // a pipe waits for its reader
    if (!device.StartWriteLog(path.data(), LOGTYPE_NMEA)) {
        throw ToolError("can't write the log " + path + "; choose another file");
    }
}

void LiveRun::StartDemo()
{
    if (emulator) {
        player.emplace(*emulator, [this] { queue.Finish(); });
    }
}

void LiveRun::PrintNotices()
{
    while (!queue.AtEnd() && signals.Wait(queue.Descriptor(), POLLIN, deadline) == StopSignals::WAIT::READY) {
        while (const auto notice = queue.Pop()) {
            if (!PrintNotice(*notice)) {
                return;
            }
            TellLostLines();
        }
    }
}

bool LiveRun::PrintNotice(const ReceiverNotice& notice)
{
    if (options.events &&
        !output.Write("event " + std::to_string(notice.eventId) + " " + EventName(notice.eventId),
                      deadline)) {
        return false;
    }
    if (notice.eventId != GPS_EVENT_EPOCH) {
        return true;
    }
    std::string line = notice.hasFix ? EpochLine(notice.fix) : NoFixLine();
    if (options.state) {
        line += StateWords(notice.move, notice.heading);
    }
    if (++epochsPrinted == EPOCHS_TO_KNOW) {
        TellReceiver();
    }
    return output.Write(line, deadline);
}

void LiveRun::TellLostLines()
{
    const std::uint64_t lost = tap.TakeLostLines();
    if (lost != 0) {
        WriteErrorLine(std::to_string(lost) + " lines lost, the output is too slow");
    }
}

void LiveRun::TellReceiver()
{
    if (platform::PortCounts(Port(), counts)) {
        WriteErrorLine(ReceiverText(counts));
    }
}

int LiveRun::Finish()
{
    platform::PortCounts(Port(), counts);
    device.CloseGPS(); // no event comes any more
    TellLostLines();
    const bool recorded = !raw || raw->Finish();
    signals.Forget();
    const LiveSummary summary = tap.Summary();
    if (!output.ReaderGone()) {
        if (!options.asIs) {
            output.Write(SentencesText(counts));
        }
        output.Write(summary.Text()); // another signal ends it for a reader that stands still
    }
    if (player) {
        player->Finish();
    }
    if (summary.Epochs() == 0) {
        throw ToolError("no epoch came: " + WhyNoEpoch());
    }
    return recorded ? 0 : 1; // what is missing has been told
}

std::string LiveRun::WhyNoEpoch() const
{
    if (HasReceiver(counts)) {
        return "sentences came, but no GGA, nor GNS or RMC at more than ten times";
    }
    const std::string settings = "look at the wiring and the settings (" + SettingsText(options) + ")";
    return options.asIs
               ? settings + ", and whether the receiver sends GGA as talker GP in at most 82 characters"
               : settings;
}

} // namespace kestgps
