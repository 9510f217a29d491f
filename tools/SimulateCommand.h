// SimulateCommand.h: "kestgps simulate", a drive along a route that a file holds.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "GpsLib/records/GPSRecords.h"
#include "tools/Command.h"
#include "tools/DriveLog.h"
#include "tools/LineOutput.h"

class CPath;
namespace CLI
{
class App;
}

namespace kestgps
{

/// Prints one line a step, as `live` does of a receiver, or writes the drive as a log.
class SimulateCommand final : public Command
{
public:
    /// app: borrowed.
    explicit SimulateCommand(CLI::App& app);
    bool Chosen() const override;
    int Run() override;

private:
    void Drive(CPath& path, StopSignals& signals, LineOutput& output, std::optional<DriveLog>& log) const;

    const CLI::App* command; // borrowed
    std::string file;
    std::string nmea;    // empty writes no log
    double speed = 50.0; // [km/h]
    double step = 1.0;   // [s]
    double rate = 0.0;   // [1/s] steps; 0 for as fast as it goes
};

} // namespace kestgps
