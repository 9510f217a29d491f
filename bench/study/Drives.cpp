#include "bench/study/Drives.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "GpsLib/math/SinCos.h"
#include "bench/study/Units.h"

namespace study
{

namespace
{

constexpr double TEN_MINUTES = 600.0;
constexpr double TURN = 6.283185307179586; // [rad]

/// Keeps the speed.
Demand Straight(double, double speed)
{
    return {speed, 0.0, 0.0};
}

Demand Curves(double time, double speed)
{
    return {speed, 0.0, 4.0 * GPS::SinCosOf(TURN * time / 40.0).sine};
}

/// A street corner every 20 s: two to the right, one to the left.
Demand Corners(double time, double speed)
{
    const double side = static_cast<int>(time / 20.0) % 3 == 0 ? -1.0 : 1.0;
    return {speed, 0.0, std::fmod(time, 20.0) >= 17.0 ? side * 30.0 : 0.0};
}

/// 30 m of radius.
Demand Circle(double, double speed)
{
    return {speed, 0.0, speed / 30.0 / DEGREE};
}

/// Off, on, braking, waiting, once a minute.
Demand City(double time, double)
{
    return std::fmod(time, 60.0) < 36.0 ? Demand{60.0 * KMH, 2.0, 0.0} : Demand{0.0, 2.5, 0.0};
}

/// Slower every 25 s, and half round.
Demand Hairpins(double time, double)
{
    const double phase = std::fmod(time, 25.0);
    const double side = static_cast<int>(time / 25.0) % 2 == 0 ? -1.0 : 1.0;
    if (phase < 10.0 || phase >= 21.0) {
        return {50.0 * KMH, 1.5, 0.0};
    }
    return {20.0 * KMH, 2.0, phase < 15.0 ? 0.0 : side * 30.0};
}

/// In to the right, round to the left, out to the right.
Demand Roundabouts(double time, double)
{
    const double phase = std::fmod(time, 30.0);
    if (phase < 14.0 || phase >= 28.0) {
        return {50.0 * KMH, 2.0, 0.0};
    }
    if (phase < 18.0) {
        return {25.0 * KMH, 2.5, 0.0};
    }
    if (phase < 19.5) {
        return {25.0 * KMH, 2.5, 27.0};
    }
    return phase < 26.5 ? Demand{25.0 * KMH, 2.0, -31.0} : Demand{30.0 * KMH, 2.0, 27.0};
}

Demand MotorwayRamp(double time, double)
{
    const double phase = std::fmod(time, 60.0);
    if (phase < 15.0 || phase >= 41.0) {
        return {120.0 * KMH, 2.0, 0.0};
    }
    return {50.0 * KMH, 2.5, phase < 26.0 ? 0.0 : 18.0};
}

Demand EmergencyBraking(double time, double)
{
    const double phase = std::fmod(time, 45.0);
    return phase >= 30.0 && phase < 38.0 ? Demand{0.0, 8.0, 0.0} : Demand{100.0 * KMH, 2.5, 0.0};
}

Demand UTurns(double time, double)
{
    const double phase = std::fmod(time, 40.0);
    if (phase < 20.0 || phase >= 33.0) {
        return {40.0 * KMH, 2.0, 0.0};
    }
    return phase < 26.0 ? Demand{0.0, 2.0, 0.0} : Demand{10.0 * KMH, 1.5, 26.0};
}

Demand Parking(double time, double)
{
    const double phase = std::fmod(time, 60.0);
    if (phase < 12.0) {
        return {8.0 * KMH, 1.0, 0.0};
    }
    if (phase < 20.0) {
        return {5.0 * KMH, 1.0, 12.0};
    }
    if (phase < 32.0) {
        return {3.0 * KMH, 1.0, -10.0};
    }
    return phase < 40.0 ? Demand{2.0 * KMH, 0.5, 15.0} : Demand{0.0, 0.5, 0.0};
}

Demand CreepingJam(double time, double)
{
    return {std::fmod(time, 20.0) < 7.0 ? 10.0 * KMH : 0.0, 0.8, 0.0};
}

/// Too slow for a heading, then a minute of rest.
Demand Crawl(double time, double)
{
    const double phase = std::fmod(time, 120.0);
    if (phase >= 60.0) {
        return {0.0, 0.5, 0.0};
    }
    return {phase < 30.0 ? 0.3 : 0.5, 0.5, 5.0};
}

/// A straight road with a corner, a jam, bends, a corner and a stop.
Demand Mixed(double time, double)
{
    const double phase = std::fmod(time, 200.0);
    if (phase < 60.0) {
        return {50.0 * KMH, 1.5, phase > 30.0 && phase < 33.0 ? 30.0 : 0.0};
    }
    if (phase < 90.0) {
        return {std::fmod(phase, 15.0) < 8.0 ? 20.0 * KMH : 0.0, 1.5, 0.0};
    }
    if (phase < 160.0) {
        return {80.0 * KMH, 1.5, 4.0 * GPS::SinCosOf(TURN * phase / 35.0).sine};
    }
    return {phase < 180.0 ? 40.0 * KMH : 0.0, 2.5, phase > 170.0 && phase < 173.0 ? -30.0 : 0.0};
}

Demand Corner(double time, double)
{
    return {40.0 * KMH, 2.0, time < 3.0 ? 30.0 : 0.0};
}

Demand Stop(double time, double)
{
    return time < 22.0 ? Demand{0.0, 2.5, 0.0} : Demand{60.0 * KMH, 2.0, 0.0};
}

Demand Brake(double time, double)
{
    return time < 8.0 ? Demand{0.0, 8.0, 0.0} : Demand{100.0 * KMH, 2.5, 0.0};
}

Demand Ramp(double time, double)
{
    return {time < 26.0 ? 50.0 * KMH : 120.0 * KMH, time < 11.0 ? 2.5 : 2.0,
            time >= 11.0 && time < 26.0 ? 18.0 : 0.0};
}

} // namespace

const std::vector<Drive>& Drives()
{
    static const std::vector<Drive> drives = {
        {"straight 100", 100.0 * KMH, Straight},
        {"straight 50", 50.0 * KMH, Straight},
        {"curves", 80.0 * KMH, Curves},
        {"corners", 40.0 * KMH, Corners},
        {"circle", 30.0 * KMH, Circle},
        {"city", 0.0, City},
        {"walking pace", 3.0 * KMH, Straight},
        {"standing", 0.0, Straight},
        {"hairpins", 0.0, Hairpins},
        {"roundabouts", 0.0, Roundabouts},
        {"motorway ramp", 0.0, MotorwayRamp},
        {"emergency braking", 0.0, EmergencyBraking},
        {"u-turns", 0.0, UTurns},
        {"parking", 0.0, Parking},
        {"creeping jam", 0.0, CreepingJam},
        {"crawl", 0.0, Crawl},
        {"mixed", 0.0, Mixed},
    };
    return drives;
}

const Track& TrackOf(const Drive& drive)
{
    static std::map<std::string, Track> tracks;
    const auto made = tracks.find(drive.name);
    return made != tracks.end()
               ? made->second
               : tracks.emplace(drive.name, Track(drive.driver, drive.start, TEN_MINUTES)).first->second;
}

const std::vector<Manoeuvre>& Manoeuvres()
{
    // Phases of the drives of these names, from where they leave the straight to where they are back at
    // speed.
    static const std::vector<Manoeuvre> manoeuvres = {
        {"street corner, 40 km/h", 40.0 * KMH, 3.0, Corner},
        {"stop at a light, from 60 km/h", 60.0 * KMH, 31.0, Stop},
        {"hairpin, 50 down to 20 km/h", 50.0 * KMH, 17.0,
         [](double time, double speed) { return Hairpins(std::min(time + 10.0, 24.0), speed); }},
        {"roundabout, 50 down to 25 km/h", 50.0 * KMH, 18.0,
         [](double time, double speed) { return Roundabouts(std::min(time + 14.0, 29.0), speed); }},
        {"u-turn with a stop, from 40 km/h", 40.0 * KMH, 18.0,
         [](double time, double speed) { return UTurns(std::min(time + 20.0, 39.0), speed); }},
        {"emergency braking, from 100 km/h", 100.0 * KMH, 20.0, Brake},
        {"motorway ramp, 120 down to 50 km/h", 120.0 * KMH, 36.0, Ramp},
    };
    return manoeuvres;
}

Demand ThroughTheCity(double time, double)
{
    struct Leg {
        double until; // [s]
        double speed; // [km/h]
        double yaw;   // [deg/s]
    };
    static constexpr Leg LEGS[] = {
        {62.0, 50.0, 0.0},    {64.0, 50.0, 25.0},
        {70.0, 60.0, 0.0},    {87.0, 0.0, 0.0}, // a bend, a traffic light
        {98.0, 50.0, 0.0},    {101.0, 20.0, 0.0},
        {104.6, 25.0, -25.0}, {114.0, 50.0, 0.0}, // a corner
        {118.0, 20.0, 0.0},   {119.5, 20.0, 27.0},
        {129.2, 20.0, -31.0}, {130.7, 25.0, 27.0}, // a roundabout, three quarters round
        {145.0, 50.0, 0.0},   {149.0, 20.0, 0.0},
        {152.6, 20.0, 25.0},  {999.0, 50.0, 0.0}, // a corner
    };
    const auto leg = std::find_if(std::begin(LEGS), std::end(LEGS) - 1,
                                  [time](const Leg& candidate) { return time < candidate.until; });
    return {leg->speed * KMH, 2.5, leg->yaw};
}

Driver RandomDriver(Dice& dice, double seconds)
{
    struct Leg {
        double until; // [s]
        double speed; // [m/s]
        double rate;  // [m/s2]
        double turn;  // [m/s2] sideways; above 0 to the right
    };
    static constexpr double YAW_MOST = 30.0; // [deg/s]
    const double top = dice.Scale(5.0, 130.0) * KMH;
    std::vector<Leg> legs;
    for (double until = 0.0; until < seconds;) {
        const bool stops = dice.Once(0.2);
        const bool turns = !stops && dice.Once(0.5);
        until += turns ? dice.Between(2.0, 12.0) : dice.Between(3.0, 40.0);
        legs.push_back({until, stops ? 0.0 : dice.Between(0.1, 1.0) * top,
                        dice.Scale(0.5, dice.Once(0.1) ? 8.0 : 3.0), turns ? dice.Between(-4.0, 4.0) : 0.0});
    }
    return [legs](double time, double speed) -> Demand {
        const auto leg = std::find_if(legs.begin(), legs.end() - 1,
                                      [time](const Leg& candidate) { return time < candidate.until; });
        const double yaw = speed > 0.0 ? leg->turn / speed / DEGREE : 0.0;
        return {leg->speed, leg->rate, std::clamp(yaw, -YAW_MOST, YAW_MOST)};
    };
}

} // namespace study
