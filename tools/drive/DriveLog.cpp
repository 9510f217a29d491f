#include "tools/drive/DriveLog.h"

#include "tools/nmea/NmeaWriter.h"

namespace kestgps
{

void DriveLog::Write(_GPS_Data fix)
{
    clock.Stamp(records++, fix);
    file.Write(NmeaWriter::ZDA(fix) + NmeaWriter::RMC(fix) + NmeaWriter::VTG(fix) + NmeaWriter::GSA(fix) +
               NmeaWriter::GGA(fix));
}

} // namespace kestgps
