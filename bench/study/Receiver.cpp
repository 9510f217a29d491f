#include "bench/study/Receiver.h"

#include <algorithm>
#include <cmath>

namespace study
{

namespace
{

constexpr int BEGIN = 36000;              // [s] of the day
constexpr double TINY = 1e-9;             // [s] so that a whole second isn't cut to the one before
constexpr double BURSTS_FROM = 40.0;      // [s]
constexpr double BURST_UNREST_TIME = 3.0; // [s]

// A minute without a fix, then an error that dies away.
constexpr double TUNNEL = 60.0; // [s]
constexpr Metres TUNNEL_ERROR{24.0, -32.0};
constexpr double TUNNEL_ERROR_TIME = 8.0; // [s]

constexpr double STUCK_SPEED = 47.0;    // [km/h]
constexpr double STUCK_HEADING = 123.0; // [deg]

double Cut(double value, double step) noexcept
{
    return step > 0.0 ? std::floor(value / step + 0.5) * step : value;
}

void TellTime(double time, _GPS_Data& fix) noexcept
{
    const int second = BEGIN + static_cast<int>(time + TINY);
    fix.time.hour = static_cast<std::uint8_t>(second / 3600 % 24);
    fix.time.minute = static_cast<std::uint8_t>(second / 60 % 60);
    fix.time.second = static_cast<std::uint8_t>(second % 60);
    fix.mask |= GPS_MASK_TIME;
}

bool InTunnel(double time, double every) noexcept
{
    return every > 0.0 && time > every && std::fmod(time, every) < TUNNEL;
}

Metres BehindTunnel(double time, double every)
{
    if (every <= 0.0 || time <= every || InTunnel(time, every)) {
        return {0.0, 0.0};
    }
    return std::exp((TUNNEL - std::fmod(time, every)) / TUNNEL_ERROR_TIME) * TUNNEL_ERROR;
}

} // namespace

Receiver::Slow::Slow(double deviation, double keep, Dice& dice)
    : deviation(deviation), keep(keep), now{deviation * dice.Gauss(), deviation * dice.Gauss()}
{
}

Metres Receiver::Slow::Next(Dice& dice)
{
    const Metres was = now;
    const double fresh = std::sqrt(1.0 - keep * keep) * deviation;
    now = keep * was + Metres{fresh * dice.Gauss(), fresh * dice.Gauss()};
    return was;
}

Receiver::Receiver(const Track& track, const Traits& traits, Dice& dice)
    : track(track),
      traits(traits),
      dice(dice),
      interval(1.0 / traits.rate),
      drift(traits.drift, std::exp(-interval / traits.driftTime), dice),
      unrest(0.0, 0.0, dice)
{
}

std::optional<Epoch> Receiver::Next()
{
    for (;;) {
        const double time = epochs * interval;
        epochs += 1.0;
        const Moment* const truth = track.At(time);
        if (truth == nullptr) {
            return std::nullopt;
        }
        const Epoch epoch = Read(time, *truth);
        if (!dice.Once(traits.missing)) {
            return epoch;
        }
    }
}

Epoch Receiver::Read(double time, const Moment& truth)
{
    _GPS_Data fix;
    fix.mask = GPS_MASK_POSITION | GPS_MASK_SPEED | GPS_MASK_HEADING;
    fix.valid = InTunnel(time, traits.tunnelEvery) || dice.Once(traits.invalid) ? 0 : 1;
    fix.lonLat = Moved(truth.at, PositionError(time));
    TellMotion(time, fix);
    Freeze(truth, fix);
    CutDigits(fix);
    if (dice.Once(traits.torn) || traits.speedless) {
        fix.speed = 0.0;
        fix.heading = 0.0;
    }
    if (traits.headingless) {
        fix.heading = 0.0;
    }
    if (!traits.timeless) {
        TellTime(time, fix);
    }
    return {time, truth, fix};
}

Metres Receiver::PositionError(double time)
{
    // One after the other: in one sum the compiler would choose whose throw comes first.
    const Metres white{traits.white * dice.Gauss(), traits.white * dice.Gauss()};
    const Metres slow = drift.Next(dice);
    const Metres far = Burst(time);
    const Metres error = slow + white + far + BehindTunnel(time, traits.tunnelEvery);
    if (traits.smoothing <= 0.0) {
        return error;
    }
    const double gain = std::min(1.0, interval / traits.smoothing);
    averaged = averaged ? *averaged + gain * (error - *averaged) : error;
    return *averaged;
}

Metres Receiver::Burst(double time)
{
    if (traits.burstEvery <= 0.0) {
        return {0.0, 0.0};
    }
    if (burstLeft <= 0.0 && time > BURSTS_FROM && dice.Once(interval / traits.burstEvery)) {
        burstLeft = dice.Between(2.0, 8.0);
        const double far = dice.Between(20.0, 100.0);
        burst = far * Towards(dice.Between(0.0, 360.0));
        unrest = Slow(0.2 * far, std::exp(-interval / BURST_UNREST_TIME), dice);
    }
    if (burstLeft <= 0.0) {
        return {0.0, 0.0};
    }
    burstLeft -= interval;
    return burst + unrest.Next(dice);
}

void Receiver::TellMotion(double time, _GPS_Data& fix)
{
    const Moment& then = *track.At(time - traits.latency);
    const Metres velocity{then.east + traits.velocity * dice.Gauss(),
                          then.north + traits.velocity * dice.Gauss()};
    fix.speed = Length(velocity) / KMH * traits.speedScale;
    fix.heading = std::fmod(HeadingOf(velocity) + traits.headingOff, 360.0);
    if (fix.speed < traits.headingLeast) {
        fix.heading = dice.Between(0.0, 359.9);
    }
    if (traits.stuckAfter > 0.0 && time > traits.stuckAfter) {
        fix.speed = STUCK_SPEED;
        fix.heading = STUCK_HEADING;
    }
}

void Receiver::Freeze(const Moment& truth, _GPS_Data& fix)
{
    if (Length(Metres{truth.east, truth.north}) >= traits.freezeBelow) {
        frozen.reset();
        return;
    }
    if (!frozen) {
        frozen = fix;
    }
    fix.lonLat = frozen->lonLat;
    fix.heading = frozen->heading;
    fix.speed = 0.0;
}

void Receiver::CutDigits(_GPS_Data& fix) const
{
    fix.lonLat.lon = Cut(fix.lonLat.lon * 60.0, traits.minuteStep) / 60.0;
    fix.lonLat.lat = Cut(fix.lonLat.lat * 60.0, traits.minuteStep) / 60.0;
    fix.speed = Cut(fix.speed, traits.speedStep);
    fix.heading = std::fmod(Cut(fix.heading, traits.headingStep), 360.0);
}

std::vector<Epoch> Received(const Track& track, const Traits& traits, Dice& dice)
{
    std::vector<Epoch> epochs;
    Receiver receiver(track, traits, dice);
    for (std::optional<Epoch> epoch = receiver.Next(); epoch; epoch = receiver.Next()) {
        epochs.push_back(*epoch);
    }
    return epochs;
}

} // namespace study
