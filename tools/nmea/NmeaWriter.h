// NmeaWriter.h: writes a fix as the NMEA 0183 sentences of a receiver.
#pragma once

#include <string>

#include "GpsLib/records/GPSRecords.h"

namespace kestgps
{

/// Each function gives one sentence of the talker "GP" with checksum and CR LF, at most 82 characters long
/// whatever the record holds; GSV gives a group of them.
///
/// Resolution: a position 0.0001 minutes, which is 1.7e-6 degrees or 0.19 m; so what is read back is at most
/// half of that off. Altitude 0.1 m, speed and heading 0.01, time whole seconds.
///
/// A fix that isn't valid or has no place on Earth is written as receivers do without a fix: its time, and
/// neither position, altitude, speed nor heading. The record's mask tells the kind of the fix alone
/// (differential, real-time kinematic): it doesn't tell which fields are there once all sentences have passed
/// over it.
class NmeaWriter
{
public:
    /// What no sentence is longer than, line end included.
    static constexpr std::size_t LENGTH_MAX = 82;

    /// Time, position, quality, satellites in use, altitude. Closes an epoch.
    static std::string GGA(const _GPS_Data& fix);
    /// Position, time, status.
    static std::string GLL(const _GPS_Data& fix);
    /// Fix mode, the first twelve satellites in use, the dilutions; one that is 0 is left empty.
    static std::string GSA(const _GPS_Data& fix);
    /// The listed satellites, four a sentence. A signal of 0 is left empty, as of a satellite that isn't
    /// heard.
    static std::string GSV(const _GPS_Data& fix);
    /// Time, status, position, speed, heading, date.
    static std::string RMC(const _GPS_Data& fix);
    /// Heading and speed.
    static std::string VTG(const _GPS_Data& fix);
    /// Time and date.
    static std::string ZDA(const _GPS_Data& fix);

    /// All of them, GGA last.
    static std::string Burst(const _GPS_Data& fix);
};

} // namespace kestgps
