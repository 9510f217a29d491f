// DriveLog.h: a made-up log of a drive, the same bytes on every processor.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "GpsLib/records/GPSRecords.h"

namespace processors
{

/// The SplitMix64 generator: shifts, sums and products of unsigned integers.
class Dice
{
public:
    /// Result: 0 to limit - 1.
    int Below(int limit) noexcept
    {
        state += 0x9E3779B97F4A7C15;
        std::uint64_t mixed = state;
        mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9;
        mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EB;
        mixed ^= mixed >> 31U;
        return static_cast<int>((mixed >> 32U) * static_cast<std::uint64_t>(limit) >> 32U);
    }

    /// Result: -limit to limit.
    int Around(int limit) noexcept { return Below(2 * limit + 1) - limit; }

    bool Once(int in) noexcept { return Below(in) == 0; }

private:
    std::uint64_t state = 2026;
};

/// What a receiver makes of a drive: white noise, outliers, losses, velocities that go missing, and halts.
class Receiver
{
public:
    /// timeStep: [s] from epoch to epoch.
    explicit Receiver(double timeStep) : step(static_cast<int>(timeStep * 100.0)) {}

    /// Result: whether the vehicle is to stay where it is.
    bool Stands() const noexcept { return standing > 0; }
    _GPS_Data See(const _GPS_Data& truth);

private:
    Dice dice;
    const int step;         // [0.01 s]
    int time = 86000 * 100; // [0.01 s] of the day
    int standing = 0;       // epochs left
};

/// The log: all seven sentence types, a vehicle on the move, stretches without a fix, fields and sentences
/// that no receiver should send. Only integers are reckoned with, so that a difference between two processors
/// is never this function's own.
std::string MakeDriveLog(std::size_t sentences);

/// A route of the same kind, from 50 degrees south to about 60 north, in kilometres from point to point, with
/// some points that coincide.
std::vector<tagLonLat> MakeRoute(std::size_t points);

} // namespace processors
