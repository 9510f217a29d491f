// DriveLog.h: writes a simulated drive as a receiver would have told it.
#pragma once

#include <cstdint>
#include <fstream>
#include <string>

#include "GpsLib/records/GPSRecords.h"

namespace kestgps
{

/// A file of NMEA sentences, GGA last in each burst, that replays to the same positions within the sentences'
/// resolution. A simulated record has no time, so the drive begins at midnight UTC of a fixed day and takes a
/// time step each.
class DriveLog
{
public:
    /// path: written anew. step: [s] from record to record.
    /// Throws ToolError when it can't be written.
    DriveLog(const std::string& path, double step);

    /// Writes one burst. Throws ToolError when it can't be written.
    void Write(_GPS_Data fix);

    /// Writes out what is still held. Throws ToolError when that fails; no Write may follow.
    void Finish();

private:
    void Check();

    std::string path;
    std::ofstream file;
    double step;
    std::uint64_t records = 0;
};

} // namespace kestgps
