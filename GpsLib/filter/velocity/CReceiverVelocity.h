// CReceiverVelocity.h: the receiver's own velocity and its change.
#pragma once

#include "GpsLib/filter/velocity/EastNorth.h"
#include "GpsLib/records/GPSRecords.h"

namespace GPS
{

/// A receiver measures its velocity by Doppler shift, far more finely than its positions tell it. A single
/// velocity that went missing is bridged by the one before. A heading of 0.0 beside a speed, as an empty
/// field leaves it, is north only where the latest other heading was within 20 degrees of it; else it got
/// lost. One who really turned north that sharply gets raw fixes until any other heading comes.
/// Thread: one at a time.
class CReceiverVelocity
{
public:
    /// Reads speed and heading of a fix; where they were lost, the fix gets those of the one before.
    /// seconds: since the latest usable fix.
    /// Result: whether there is a velocity. False until a speed and a heading above 0 were seen, since a
    /// receiver that sends neither leaves zeros, and after four lost in a row.
    bool Read(_GPS_Data& fix, double seconds) noexcept;

    double Speed() const noexcept { return speed; }          ///< [m/s]
    EastNorth Velocity() const noexcept { return velocity; } ///< [m/s]
    EastNorth Change() const noexcept { return change; }     ///< [m/s] since the velocity before

private:
    bool IsLost(const _GPS_Data& fix, double seconds) const noexcept;

    bool seen = false;       // a speed above 0 with a heading above 0
    int lost = 0;            // velocities missing in a row
    double told = 0.0;       // [deg] the latest heading above 0
    double rawSpeed = 0.0;   // [km/h] of the latest velocity
    double rawHeading = 0.0; // [deg] of the latest velocity
    double speed = 0.0;      // [m/s]
    EastNorth velocity;      // [m/s]
    EastNorth change;        // [m/s]
};

} // namespace GPS
