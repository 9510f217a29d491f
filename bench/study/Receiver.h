// Receiver.h: what a receiver makes of a drive: noise, drift, an old velocity, faults.
#pragma once

#include <optional>
#include <vector>

#include "GpsLib/records/GPSRecords.h"
#include "bench/study/Dice.h"
#include "bench/study/Track.h"
#include "bench/study/Units.h"

namespace study
{

/// What kind of receiver it is. Deviations are those of one component, east or north.
struct Traits {
    double rate = 1.0;       ///< [Hz] fixes
    double white = 5.0;      ///< [m] noise from fix to fix
    double velocity = 0.2;   ///< [m/s] noise of the velocity
    double drift = 0.0;      ///< [m] slow noise,
    double driftTime = 30.0; ///< [s] and how long it takes to change
    double latency = 0.0;    ///< [s] age of the velocity

    double minuteStep = 0.0;  ///< [1/60 deg] last digit of the position; 0: none is cut
    double speedStep = 0.0;   ///< [km/h] of the speed
    double headingStep = 0.0; ///< [deg] of the heading

    double burstEvery = 0.0;  ///< [s] mean time between bursts of fixes 20 to 100 m off; 0: none
    double tunnelEvery = 0.0; ///< [s] between two minutes without a fix; 0: none
    double invalid = 0.0;     ///< share of fixes that aren't valid,
    double missing = 0.0;     ///< of epochs that don't come,
    double torn = 0.0;        ///< of epochs without speed and heading

    double speedScale = 1.0;   ///< the speed it tells, for each true one
    double headingOff = 0.0;   ///< [deg] the heading it tells, above the true one
    double stuckAfter = 0.0;   ///< [s] from when on the velocity stands still; 0: never
    double freezeBelow = 0.0;  ///< [m/s] slower than that it repeats itself
    double smoothing = 0.0;    ///< [s] over which it averages its errors; 0: doesn't
    double headingLeast = 0.0; ///< [km/h] below which headings are at random
    bool speedless = false;    ///< neither speed nor heading
    bool headingless = false;
    bool timeless = false;
};

/// One epoch: what is so, and what is told.
struct Epoch {
    double time; ///< [s] since the drive began
    Moment truth;
    _GPS_Data fix;
};

class Receiver
{
public:
    /// All are borrowed.
    Receiver(const Track& track, const Traits& traits, Dice& dice);

    /// Result: the next epoch; none at the drive's end.
    std::optional<Epoch> Next();

private:
    /// Noise that dies away while new one comes (Ornstein and Uhlenbeck 1930).
    class Slow
    {
    public:
        Slow(double deviation, double keep, Dice& dice);
        /// Result: the noise now; goes one epoch on.
        Metres Next(Dice& dice);

    private:
        double deviation;
        double keep; // share of it from epoch to epoch
        Metres now;
    };

    Epoch Read(double time, const Moment& truth);
    Metres PositionError(double time);
    Metres Burst(double time);
    void TellMotion(double time, _GPS_Data& fix);
    void Freeze(const Moment& truth, _GPS_Data& fix);
    void CutDigits(_GPS_Data& fix) const;

    const Track& track;
    const Traits& traits;
    Dice& dice;
    double interval;     // [s] from epoch to epoch
    double epochs = 0.0; // so far, missing ones too
    Slow drift;
    double burstLeft = 0.0; // [s]
    Metres burst{};
    Slow unrest;                     // within a burst
    std::optional<Metres> averaged;  // errors, of a receiver that smooths
    std::optional<_GPS_Data> frozen; // what it repeats
};

/// A whole drive.
std::vector<Epoch> Received(const Track& track, const Traits& traits, Dice& dice);

} // namespace study
