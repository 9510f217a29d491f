// RecordFields.h: a record field by field, so that padding has no part in a comparison.
#pragma once

#include <cmath>
#include <cstdint>
#include <cstring>

#include "GpsLib/records/GPSRecords.h"

namespace processors
{

/// Calls `visit(name, bits)` for every field of the record in order; an array is visited element by element.
template <class VISITOR>
void VisitFields(const _GPS_Data& record, VISITOR&& visit)
{
    const auto real = [&visit](const char* name, double value) {
        // Which bits "no number" has is the processor's choice, even its sign: all of them count as one.
        std::uint64_t bits = 0x7FF8000000000000;
        if (!std::isnan(value)) {
            std::memcpy(&bits, &value, sizeof bits);
        }
        visit(name, bits);
    };
    const auto whole = [&visit](const char* name, auto value) {
        visit(name, static_cast<std::uint64_t>(value));
    };
    const auto list = [&whole](const char* name, const auto& values) {
        for (const auto value : values) {
            whole(name, value);
        }
    };
    whole("mask", record.mask);
    whole("date.year", record.date.year);
    whole("date.month", record.date.month);
    whole("date.day", record.date.day);
    whole("time.hour", record.time.hour);
    whole("time.minute", record.time.minute);
    whole("time.second", record.time.second);
    list("time.reserved", record.time.reserved);
    whole("satUsed", static_cast<std::uint32_t>(record.satUsed));
    list("satellite.prn", record.satellite.prn);
    list("satellite.elevation", record.satellite.elevation);
    list("satellite.snr", record.satellite.snr);
    list("satellite.azimuth", record.satellite.azimuth);
    list("satellite.used", record.satellite.used);
    whole("satellite.viewCount", record.satellite.viewCount);
    whole("satellite.listedCount", record.satellite.listedCount);
    real("lonLat.lon", record.lonLat.lon);
    real("lonLat.lat", record.lonLat.lat);
    real("speed", record.speed);
    real("altitude", record.altitude);
    real("heading", record.heading);
    real("pdop", record.pdop);
    real("hdop", record.hdop);
    real("vdop", record.vdop);
    whole("valid", record.valid);
    list("reserved", record.reserved);
}

/// The 64-bit hash of Fowler, Noll and Vo, variant 1a.
class Digest
{
public:
    void AddByte(std::uint64_t byte) noexcept { value = (value ^ (byte & 0xFFU)) * 0x100000001B3; }

    /// Adds eight bytes, the low one first whatever the processor's order is.
    void Add(std::uint64_t word) noexcept
    {
        for (unsigned shift = 0; shift < 64; shift += 8) {
            AddByte(word >> shift);
        }
    }

    std::uint64_t Value() const noexcept { return value; }

private:
    std::uint64_t value = 0xCBF29CE484222325;
};

} // namespace processors
