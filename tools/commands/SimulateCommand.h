// SimulateCommand.h: "kestgps simulate", a drive along a route that a file holds.
#pragma once

#include <functional>
#include <string>

#include "GpsLib/records/GPSRecords.h"
#include "tools/commands/Command.h"

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
    /// take: gets each fix; false ends the drive.
    void Drive(CPath& path, const std::function<bool(const _GPS_Data&)>& take) const;
    void WriteLog(CPath& path) const;

    const CLI::App* command; // borrowed
    std::string file;
    std::string nmea;    // empty writes no log
    double speed = 50.0; // [km/h]
    double step = 1.0;   // [s]
    double rate = 0.0;   // [1/s] steps; 0 for as fast as it goes
};

} // namespace kestgps
