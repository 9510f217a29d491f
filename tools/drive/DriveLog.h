// DriveLog.h: writes a simulated drive as a receiver would have told it.
#pragma once

#include <cstdint>

#include "GpsLib/records/GPSRecords.h"
#include "tools/drive/DriveClock.h"
#include "tools/files/OutputFile.h"

namespace kestgps
{

/// Sentences, GGA last in each burst, that replay to the same positions within the sentences' resolution.
class DriveLog
{
public:
    /// file: borrowed. step: [s] from record to record.
    DriveLog(OutputFile& file, double step) noexcept : file(file), clock(step) {}

    /// Writes one burst. Throws ToolError when it can't be written.
    void Write(_GPS_Data fix);

private:
    OutputFile& file; // borrowed
    const DriveClock clock;
    std::uint64_t records = 0;
};

} // namespace kestgps
