#include "tools/commands/SimulateCommand.h"

#include <CLI/CLI.hpp>
#include <unistd.h>

#include "GpsLib/Kest_GPS.h"
#include "layers/route/CGuidePath.h"
#include "tools/drive/DriveLog.h"
#include "tools/errors/ToolError.h"
#include "tools/files/SameFile.h"
#include "tools/options/OptionChecks.h"
#include "tools/output/EpochLine.h"
#include "tools/output/LineOutput.h"
#include "tools/route/RouteFile.h"
#include "tools/waiting/Pace.h"

namespace kestgps
{

SimulateCommand::SimulateCommand(CLI::App& app)
{
    constexpr double LEAST = 0.001;      // of speed, step and rate alike: a drive that gets somewhere
    constexpr double SPEED_MOST = 300.0; // [km/h]
    constexpr double STEP_MOST = 3600.0; // [s]
    constexpr double RATE_MOST = 1e6;
    CLI::App* const simulate = app.add_subcommand("simulate", "Drive a route and print its fixes");
    simulate->add_option("ROUTE", file, "GPX 1.1 track or route, or CSV of lon,lat")
        ->required()
        ->check(FileName());
    simulate->add_option("--speed", speed, "km/h (50)")->transform(Within(LEAST, SPEED_MOST));
    simulate->add_option("--step", step, "Seconds from fix to fix (1)")
        ->transform(Within(LEAST, STEP_MOST))
        ->check(AtMostDecimals(DriveClock::STEP_DECIMALS));
    simulate->add_option("--rate", rate, "Fixes a second (as fast as it goes)")
        ->transform(Within(LEAST, RATE_MOST));
    simulate
        ->add_option(
            "--nmea", nmea,
            "Write the drive as a log to this file instead; one that is there is replaced by the whole drive")
        ->check(FileName());
    command = simulate;
}

bool SimulateCommand::Chosen() const
{
    return command->parsed();
}

int SimulateCommand::Run()
{
    route::CGuidePath path(ReadRouteFile(file));
    if (nmea.empty()) {
        RefuseAsStandardOutput(file);
        LineOutput output(STDOUT_FILENO);
        Drive(path, [&output](const _GPS_Data& fix) { return output.Write(EpochLine(fix)); });
    } else {
        WriteLog(path);
    }
    return 0;
}

void SimulateCommand::WriteLog(CPath& path) const
{
    OutputFile output(nmea, file);
    DriveLog log(output, step);
    Drive(path, [&log](const _GPS_Data& fix) {
        log.Write(fix);
        return true;
    });
    output.Finish();
}

void SimulateCommand::Drive(CPath& path, const std::function<bool(const _GPS_Data&)>& take) const
{
    GPS::CGPSSimuDevice device;
    if (!device.SetSimuParam(&path, step, speed) || !device.BeginSimu()) {
        throw ToolError("the drive along " + file + " won't begin");
    }
    Pace pace(rate);
    bool driving = true;
    while (driving) {
        pace.AwaitNext();
        _GPS_Data fix;
        driving = device.GetGPSData(fix);
        if (fix.valid == 0) {
            throw ToolError("the drive along " + file + " failed on its way");
        }
        driving = take(fix) && driving;
    }
}

} // namespace kestgps
