// ReplaySpeed.cpp: writes a long log, and replays one at full speed, beside its floor in the same run;
// replay.sh sets it beside another program.
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <stdexcept>
#include <string>

#include "GpsLib/log/CGPSLogDevice.h"
#include "bench/Floors.h"
#include "tools/files/WholeFile.h"
#include "tools/nmea/NmeaWriter.h"

namespace
{

using Clock = std::chrono::steady_clock;

/// A drive round and round a town, one fix a second, twelve satellites in view.
_GPS_Data FixOf(unsigned long second)
{
    _GPS_Data fix;
    const double angle = static_cast<double>(second) * 0.001;
    fix.valid = 1;
    fix.lonLat = {11.5 + 0.1 * std::sin(angle), 48.1 + 0.07 * std::cos(angle)};
    fix.heading = std::fmod(90.0 + angle * 57.3, 360.0);
    fix.speed = 40.0 + static_cast<double>(second % 20);
    fix.altitude = 520.0;
    fix.satUsed = 8;
    fix.hdop = 0.9;
    fix.pdop = 1.7;
    fix.vdop = 1.4;
    fix.date = {26, 1, 1};
    fix.time.hour = static_cast<std::uint8_t>(second / 3600 % 24);
    fix.time.minute = static_cast<std::uint8_t>(second / 60 % 60);
    fix.time.second = static_cast<std::uint8_t>(second % 60);
    for (std::size_t slot = 0; slot < 12; ++slot) {
        fix.satellite.prn[slot] = static_cast<std::uint8_t>(slot + 1);
        fix.satellite.elevation[slot] = 45;
        fix.satellite.azimuth[slot] = 123;
        fix.satellite.snr[slot] = 40;
        fix.satellite.used[slot] = slot < 8 ? 1 : 0;
    }
    fix.satellite.viewCount = 12;
    return fix;
}

void Write(const char* path, unsigned long epochs)
{
    std::ofstream log(path, std::ios::binary);
    for (unsigned long second = 0; second < epochs; ++second) {
        log << kestgps::NmeaWriter::Burst(FixOf(second));
    }
    if (!log.flush()) {
        throw std::runtime_error(std::string("can't write ") + path);
    }
}

/// [KiB] the largest resident memory of this process so far.
long PeakResident()
{
    const std::string status = kestgps::ReadWholeFile("/proc/self/status");
    return std::strtol(status.c_str() + status.find("VmHWM:") + std::strlen("VmHWM:"), nullptr, 10);
}

double SecondsSince(Clock::time_point begin)
{
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

/// Result: the epochs of the log.
unsigned long ReadAll(std::string path, bool smooth)
{
    GPS::CGPSLogDevice log;
    if (!log.OpenLogFileForRead(path.data())) {
        throw std::runtime_error("can't read " + path);
    }
    if (smooth) {
        log.OpenFilter();
    }
    unsigned long epochs = 0;
    for (_GPS_Data fix; log.GetGPSData(fix);) {
        ++epochs;
    }
    return epochs;
}

/// Replay and floor turn by turn; of each the fastest turn counts.
void Replay(const std::string& path, bool smooth)
{
    constexpr int TURNS = 7;
    double own = std::numeric_limits<double>::infinity();
    double floor = own;
    unsigned long epochs = 0;
    unsigned long sum = 0; // told, so that the floor can't be left out
    for (int turn = 0; turn < TURNS; ++turn) {
        const Clock::time_point begin = Clock::now();
        epochs = ReadAll(path, smooth);
        own = std::min(own, SecondsSince(begin));
        const Clock::time_point floorBegin = Clock::now();
        sum = LinesFloor(path);
        floor = std::min(floor, SecondsSince(floorBegin));
    }
    const double megabytes = static_cast<double>(std::filesystem::file_size(path)) / 1e6;
    std::printf("%lu epochs %.3f s  %.1f MB/s  %.0f epochs/s  peak %ld KiB resident  "
                "%.2f times reading and summing the lines (%lu)\n",
                epochs, own, megabytes / own, static_cast<double>(epochs) / own, PeakResident(), own / floor,
                sum);
}

} // namespace

int main(int argc, char** argv)
{
    try {
        if (argc == 4 && std::strcmp(argv[1], "write") == 0) {
            Write(argv[2], std::strtoul(argv[3], nullptr, 10));
        } else if (argc == 3 && std::strcmp(argv[1], "replay") == 0) {
            Replay(argv[2], false);
        } else if (argc == 3 && std::strcmp(argv[1], "smooth") == 0) {
            Replay(argv[2], true);
        } else {
            throw std::runtime_error("usage: write FILE EPOCHS | replay FILE | smooth FILE");
        }
        return 0;
    } catch (const std::exception& error) {
        static_cast<void>(std::fprintf(stderr, "kest_gps_replay_speed: %s\n", error.what()));
        return 1;
    }
}
