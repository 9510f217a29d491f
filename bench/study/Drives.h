// Drives.h: the drives of the study.
#pragma once

#include <string>
#include <vector>

#include "bench/study/Dice.h"
#include "bench/study/Track.h"

namespace study
{

struct Drive {
    const char* name;
    double start; ///< [m/s]
    Demand (*driver)(double time, double speed);
};

/// The seventeen kinds.
const std::vector<Drive>& Drives();

/// Ten minutes of a drive of Drives(); made once.
const Track& TrackOf(const Drive& drive);

/// One manoeuvre: who comes along straight on at a speed ends it straight on at this speed.
struct Manoeuvre {
    const char* name;
    double speed;                                ///< [m/s]
    double takes;                                ///< [s]
    Demand (*driver)(double time, double speed); ///< time: [s] since it began
};

const std::vector<Manoeuvre>& Manoeuvres();

/// Through a city: streets, corners, a traffic light.
Demand ThroughTheCity(double time, double speed);

/// A driver who does this and that, thought out by dice.
Driver RandomDriver(Dice& dice, double seconds);

} // namespace study
