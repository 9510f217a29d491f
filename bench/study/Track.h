// Track.h: where a vehicle truly is, and how it moves, a hundred times a second.
#pragma once

#include <functional>
#include <vector>

#include "GpsLib/records/GPSRecords.h"

namespace study
{

/// The truth at an instant.
struct Moment {
    tagLonLat at;
    double east;  ///< [m/s]
    double north; ///< [m/s]
};

/// What the driver wants at an instant.
struct Demand {
    double speed; ///< [m/s] to be reached,
    double rate;  ///< [m/s2] and how fast
    double yaw;   ///< [deg/s] clockwise
};

/// time: [s] since the drive began. speed: [m/s] of the vehicle now.
using Driver = std::function<Demand(double time, double speed)>;

class Track
{
public:
    /// start: [m/s] at the beginning, north-east. seconds: how long it goes on.
    Track(const Driver& driver, double start, double seconds);

    /// time: [s] since the beginning; the first moment before it, none behind the end.
    const Moment* At(double time) const noexcept;

private:
    std::vector<Moment> moments;
};

} // namespace study
