// RecordsDump.cpp: what the library makes of one log and one route, in digests; `check` compares processors
// by it.
//
// usage: kest_records_dump LOG                      one digest for each section
//        kest_records_dump LOG RECORDS              and one for so many records each, to find a difference
//        kest_records_dump LOG SECTION FIRST LAST   these records, field by field
// LOG is written, then replayed.
#include <array>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <string>

#include "GpsLib/log/CGPSLogDevice.h"
#include "GpsLib/simu/CGPSSimuDevice.h"
#include "layers/route/CGuidePath.h"
#include "tests/processors/DriveLog.h"
#include "tests/processors/RecordFields.h"

namespace
{

constexpr std::size_t SENTENCES = 100000;
constexpr std::size_t ROUTE_POINTS = 1500;
constexpr double TIME_STEP = 5.0; // [s]
constexpr double SPEED = 261.3;   // [km/h]

struct Options {
    std::uint64_t every = std::numeric_limits<std::uint64_t>::max(); // records to a digest
    std::string section; // whose records are printed; none when empty
    std::uint64_t first = 0;
    std::uint64_t last = 0;
};

/// The records of one section.
class Section
{
public:
    Section(const char* name, const Options& options) : name(name), options(options) {}

    void Take(const _GPS_Data& record)
    {
        ++count;
        processors::VisitFields(record, [this](const char*, std::uint64_t bits) {
            whole.Add(bits);
            part.Add(bits);
        });
        if (count % options.every == 0) {
            std::printf("%s up to %" PRIu64 " %016" PRIX64 "\n", name, count, part.Value());
            part = processors::Digest();
        }
        if (options.section == name && count >= options.first && count <= options.last) {
            processors::VisitFields(record, [this](const char* field, std::uint64_t bits) {
                std::printf("%s %" PRIu64 " %s %016" PRIX64 "\n", name, count, field, bits);
            });
        }
    }

    /// Result: false for a section that nothing came out of.
    bool Finish() const
    {
        if (options.section.empty()) {
            std::printf("%s %" PRIu64 " records %016" PRIX64 "\n", name, count, whole.Value());
        }
        return count != 0;
    }

private:
    const char* name;
    const Options& options;
    std::uint64_t count = 0;
    processors::Digest whole;
    processors::Digest part;
};

bool WriteLog(const std::string& path, const Options& options)
{
    const std::string log = processors::MakeDriveLog(SENTENCES);
    processors::Digest digest;
    for (const char byte : log) {
        digest.AddByte(static_cast<unsigned char>(byte));
    }
    if (options.section.empty()) {
        std::printf("log %zu bytes %016" PRIX64 "\n", log.size(), digest.Value());
    }
    return static_cast<bool>(std::ofstream(path, std::ios::binary) << log << std::flush);
}

bool Replay(const char* name, std::string path, bool smoothed, const Options& options)
{
    Section section(name, options);
    GPS::CGPSLogDevice device;
    if (smoothed) {
        device.OpenFilter();
    }
    if (!device.OpenLogFileForRead(path.data())) {
        return false;
    }
    for (_GPS_Data record; device.GetGPSData(record);) {
        section.Take(record);
    }
    return section.Finish();
}

/// Result: false also for a drive that ends before its route does.
bool Drive(const Options& options)
{
    Section section("drive", options);
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
    if (record.valid == 0) {
        return false;
    }
    section.Take(record);
    return section.Finish();
}

std::uint64_t Count(const char* text)
{
    return std::strtoull(text, nullptr, 10);
}

} // namespace

int main(int argc, char* argv[])
{
    Options options;
    if (argc == 3) {
        options.every = Count(argv[2]);
    } else if (argc == 5) {
        options.section = argv[2];
        options.first = Count(argv[3]);
        options.last = Count(argv[4]);
    }
    if ((argc != 2 && argc != 3 && argc != 5) || options.every == 0) {
        std::printf("usage: kest_records_dump LOG [RECORDS | SECTION FIRST LAST]\n");
        return 2;
    }
    const std::string path = argv[1];
    const bool done = WriteLog(path, options) && Replay("replay", path, false, options) &&
                      Replay("smoothed", path, true, options) && Drive(options);
    return done ? 0 : 1;
}
