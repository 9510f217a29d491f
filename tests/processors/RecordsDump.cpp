// RecordsDump.cpp: what the library makes of one log and one route, for `check` to compare processors by it.
//
// usage: kest_records_dump LOG [velocity]
// LOG is written, then replayed as it is and smoothed, and the route is driven; or all that by the velocity
// model alone. Each line has the section, the record's number, and a field's name and bits
// in hexadecimal, so that padding has no part in a comparison.
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <type_traits>

#include "GpsLib/filter/velocity/CVelocityFilter.h"
#include "GpsLib/log/CGPSLogDevice.h"
#include "GpsLib/simu/CGPSSimuDevice.h"
#include "layers/route/CGuidePath.h"
#include "tests/processors/DriveLog.h"

namespace
{

constexpr std::size_t SENTENCES = 100000;
constexpr std::size_t ROUTE_POINTS = 1500;
constexpr double TIME_STEP = 5.0; // [s]
constexpr double SPEED = 261.3;   // [km/h]

template <class FIELD>
void Append(std::string& text, const FIELD& field)
{
    if constexpr (std::is_array_v<FIELD>) {
        for (const auto element : field) {
            Append(text, element);
        }
    } else {
        std::uint64_t bits = 0;
        if constexpr (std::is_floating_point_v<FIELD>) {
            std::memcpy(&bits, &field, sizeof bits);
            // Which bits "no number" has is the processor's choice, even its sign: all of them count as one.
            bits = std::isnan(field) ? 0x7FF8000000000000 : bits;
        } else {
            bits = static_cast<std::uint64_t>(field);
        }
        char digits[16];
        text.append(1, ' ').append(digits, std::to_chars(digits, std::end(digits), bits, 16).ptr);
    }
}

/// The records of one section.
class Section
{
public:
    explicit Section(const char* name) : name(name) {}

    void Take(const _GPS_Data& record)
    {
        ++count;
        Print("mask", record.mask);
        Print("date", record.date.year, record.date.month, record.date.day);
        Print("time", record.time.hour, record.time.minute, record.time.second, record.time.reserved);
        Print("satUsed", record.satUsed);
        Print("satellite.prn", record.satellite.prn);
        Print("satellite.elevation", record.satellite.elevation);
        Print("satellite.snr", record.satellite.snr);
        Print("satellite.azimuth", record.satellite.azimuth);
        Print("satellite.used", record.satellite.used);
        Print("satellite.counts", record.satellite.viewCount, record.satellite.listedCount);
        Print("lonLat", record.lonLat.lon, record.lonLat.lat);
        Print("speed", record.speed);
        Print("altitude", record.altitude);
        Print("heading", record.heading);
        Print("dop", record.pdop, record.hdop, record.vdop);
        Print("valid", record.valid);
        Print("reserved", record.reserved);
    }

    /// Result: false for a section that nothing came out of.
    bool Any() const { return count != 0; }

private:
    template <class... FIELDS>
    void Print(const char* field, const FIELDS&... fields)
    {
        std::string line = name + (' ' + std::to_string(count)) + ' ' + field;
        (Append(line, fields), ...);
        std::puts(line.c_str());
    }

    const std::string name;
    std::uint64_t count = 0;
};

bool Replay(const char* name, std::string path, bool smoothed, FILTERMODEL model = FILTERMODEL_ACCELERATION)
{
    Section section(name);
    GPS::CGPSLogDevice device;
    device.SetFilterModel(model);
    if (smoothed) {
        device.OpenFilter();
    }
    if (!device.OpenLogFileForRead(path.data())) {
        return false;
    }
    for (_GPS_Data record; device.GetGPSData(record);) {
        section.Take(record);
    }
    return section.Any();
}

/// Result: false also for a drive that ends before its route does.
bool Drive()
{
    Section section("drive");
    route::CGuidePath path(processors::MakeRoute(ROUTE_POINTS));
    GPS::CGPSSimuDevice device;
    if (!device.SetSimuParam(&path, TIME_STEP, SPEED) || !device.BeginSimu()) {
        return false;
    }
    _GPS_Data record;
    while (device.GetGPSData(record)) {
        section.Take(record);
        record.valid = 0;
    }
    section.Take(record);
    return record.valid != 0;
}

/// A drive of short legs as a receiver sees it, smoothed by the velocity model.
bool DriveAlongVelocity(double timeStep)
{
    constexpr std::size_t LEGS = 60000; // of 300 m
    constexpr double TOWN_SPEED = 50.0; // [km/h]
    constexpr int EPOCHS = 8000;
    Section section("along");
    route::CGuidePath path(processors::MakeRoute(LEGS));
    GPS::CGPSSimuDevice device;
    GPS::CVelocityFilter filter;
    processors::Receiver receiver(timeStep);
    bool drives = device.SetSimuParam(&path, timeStep, TOWN_SPEED) && device.BeginSimu();
    _GPS_Data truth;
    for (int epoch = 0; drives && epoch < EPOCHS; ++epoch) {
        drives = receiver.Stands() || device.GetGPSData(truth);
        _GPS_Data fix = receiver.See(truth);
        filter.Filter(fix);
        section.Take(fix);
    }
    return drives;
}

} // namespace

int main(int argc, char* argv[])
{
    const bool velocity = argc == 3 && std::strcmp(argv[2], "velocity") == 0;
    if (argc != 2 && !velocity) {
        std::printf("usage: kest_records_dump LOG [velocity]\n");
        return 2;
    }
    const std::string path = argv[1];
    const std::string log = processors::MakeDriveLog(SENTENCES);
    const bool written = static_cast<bool>(std::ofstream(path, std::ios::binary) << log << std::flush);
    if (!written) {
        return 1;
    }
    if (velocity) {
        const bool replayed = Replay("velocity", path, true, FILTERMODEL_VELOCITY);
        return replayed && DriveAlongVelocity(1.0) && DriveAlongVelocity(0.2) ? 0 : 1;
    }
    return Replay("replay", path, false) && Replay("smoothed", path, true) && Drive() ? 0 : 1;
}
