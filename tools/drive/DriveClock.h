// DriveClock.h: when the records of a simulated drive are.
#pragma once

#include <cstdint>

#include "GpsLib/records/GPSRecords.h"

namespace kestgps
{

/// A simulated record has no time, so a drive begins at midnight UTC of a fixed day and takes a time step
/// each.
class DriveClock
{
public:
    /// More decimals of a step aren't kept.
    static constexpr int STEP_DECIMALS = 9;

    /// step: [s] up to 3600.
    explicit DriveClock(double step) noexcept;

    /// Sets date and time of a record: the whole seconds that have passed, exactly.
    /// number: of the record, from 0; 500 years of them.
    void Stamp(std::uint64_t number, _GPS_Data& fix) const;

private:
    const std::uint64_t step; // [ns], since no double holds 0.7 s and its multiples
};

} // namespace kestgps
