#include "GpsLib/filter/velocity/CVelocityFilter.h"

#include <utility>

#include "GpsLib/contracts/KestMath.h"

namespace GPS
{

namespace
{

constexpr double GAP = 6.0; // [s] without a usable fix, after which what was reckoned is worth nothing

// [deg] closer to a pole, metres east are no straight line any more.
constexpr double LATITUDE_MOST = 89.0;
constexpr double POLE = 90.0;
constexpr double HALF_CIRCLE = 180.0;
constexpr double FULL_CIRCLE = 360.0;

/// False for what is no number too.
bool IsWithin(const tagLonLat& position, double latitudeMost) noexcept
{
    return position.lat >= -latitudeMost && position.lat <= latitudeMost && position.lon >= -HALF_CIRCLE &&
           position.lon <= HALF_CIRCLE;
}

/// longitude: [deg] or a difference of two, up to one turn too far.
double Wrapped(double longitude) noexcept
{
    if (longitude > HALF_CIRCLE) {
        return longitude - FULL_CIRCLE;
    }
    return longitude < -HALF_CIRCLE ? longitude + FULL_CIRCLE : longitude;
}

EastNorth MetresADegreeAt(const tagLonLat& position) noexcept
{
    EastNorth metres;
    GetUnitLength(position, metres.east, metres.north);
    return metres;
}

} // namespace

void CVelocityFilter::Filter(_GPS_Data& fix) noexcept
{
    const double interval = clock.Step(fix);
    since += interval;
    if (interval <= 0.0 || since > GAP) {
        running = false;
    }
    if (interval <= 0.0 || fix.valid == 0 || !IsWithin(fix.lonLat, LATITUDE_MOST)) {
        return;
    }
    const double seconds = std::exchange(since, 0.0);
    if (velocity.Read(fix, seconds)) {
        Smooth(fix, seconds);
    } else {
        running = false;
    }
}

void CVelocityFilter::Smooth(_GPS_Data& fix, double seconds) noexcept
{
    const EastNorth metresADegree = MetresADegreeAt(fix.lonLat);
    const EastNorth way = WayTo(fix.lonLat, metresADegree);
    if (!running) {
        BeginRun(fix);
        return;
    }
    const double speed = velocity.Speed();
    const EastNorth now = velocity.Velocity();
    const EastNorth change = velocity.Change();
    const bool still = standstill.Step(speed, now, seconds);
    const bool stands = still && !gate.InDoubt();
    // How much farther the fixes went than the velocity says (trapezoid): without its lag, and with it.
    const EastNorth withoutLag = way - seconds * (now - 0.5 * change);
    const EastNorth farther = stands ? way : withoutLag - lag.Seconds() * change;
    const double surprise = Square(bank.Offset() - farther);
    const bool moved = way.east != 0.0 || way.north != 0.0;
    const auto verdict = gate.Step({surprise, bank.BestScore(), change, moved}, seconds);
    if (verdict == COutlierGate::VERDICT_GO_OVER) {
        GoOver();
    } else {
        const bool believed = verdict == COutlierGate::VERDICT_BELIEVE;
        lag.Step(withoutLag, speed, change, believed, bank.MiddleScore());
        bank.Step(farther, believed, stands);
        Move(fix.lonLat, metresADegree);
    }
    fix.heading = heading.Step(fix.heading, speed, now, seconds, still);
}

/// Result: [m] from the last fix; this one is the last from now on.
EastNorth CVelocityFilter::WayTo(const tagLonLat& position, EastNorth metresADegree) noexcept
{
    const tagLonLat from = std::exchange(last, position);
    return {Wrapped(position.lon - from.lon) * metresADegree.east,
            (position.lat - from.lat) * metresADegree.north};
}

void CVelocityFilter::BeginRun(const _GPS_Data& fix) noexcept
{
    running = true;
    standstill.Begin();
    heading.Begin(fix.heading);
    GoOver();
}

/// Everything that leads away from the fix starts from it. What was learnt of the receiver stays.
void CVelocityFilter::GoOver() noexcept
{
    lag.Begin();
    bank.Begin();
    gate.Begin();
}

/// Fixes that leap ever farther could lead the points beyond a pole; the fix is then gone over to.
void CVelocityFilter::Move(tagLonLat& position, EastNorth metresADegree) noexcept
{
    const EastNorth offset = bank.Offset();
    const tagLonLat moved{Wrapped(position.lon + offset.east / metresADegree.east),
                          position.lat + offset.north / metresADegree.north};
    if (IsWithin(moved, POLE)) {
        position = moved;
    } else {
        GoOver();
    }
}

} // namespace GPS
