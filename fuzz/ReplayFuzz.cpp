// Any file as a log, replayed to its end with smoothing and without.
#include <algorithm>
#include <string>

#include <sys/mman.h>
#include <unistd.h>

#include "GpsLib/log/CGPSLogDevice.h"
#include "fuzz/Require.h"

namespace
{

/// A file in memory that each input fills anew; it opens by a path like any other.
class LogFile
{
public:
    LogFile() : file(memfd_create("log", MFD_CLOEXEC)), path("/proc/self/fd/" + std::to_string(file))
    {
        Require(file >= 0, "there is a file in memory");
    }

    void Fill(const std::uint8_t* data, std::size_t size)
    {
        const bool filled =
            ftruncate(file, 0) == 0 && pwrite(file, data, size, 0) == static_cast<ssize_t>(size);
        Require(filled, "the file takes the input");
    }

    char* Path() noexcept { return path.data(); }

private:
    int file;
    std::string path;
};

void RequireSame(GPS::CGPSLogDevice& device, const _GPS_Data& given)
{
    _GPS_Data_Without_Sate narrow{};
    _GPS_Data_Without_Sate expected{};
    _GPS_Satellite satellite{};
    const bool valid = given.valid != 0;
    CopyToWithoutSate(given, expected);
    Require(device.GetGPSDataWithoutSate(narrow) == valid && device.GetWholeSate(satellite) == valid,
            "a valid record is there to be read again");
    Require(!valid || BytesOf(narrow) == BytesOf(expected), "and it is the one given, without satellites");
    Require(!valid || BytesOf(satellite) == BytesOf(given.satellite), "and so are the satellites");
}

/// Smoothing rewrites these and nothing else.
_GPS_Data WithoutMotion(_GPS_Data record)
{
    record.lonLat = {};
    record.speed = 0.0;
    record.heading = 0.0;
    return record;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static LogFile log;
    log.Fill(data, size);
    GPS::CGPSLogDevice plain;
    GPS::CGPSLogDevice smoothed;
    smoothed.OpenFilter();
    Require(plain.OpenLogFileForRead(log.Path()) && smoothed.OpenLogFileForRead(log.Path()), "it opens");

    // A line that begins with NUL ends a read too, so that many may come before the one at the file's end.
    auto endsLeft = std::count(data, data + size, 0) + 1;
    while (endsLeft > 0) {
        _GPS_Data record;
        _GPS_Data twin;
        const bool given = plain.GetGPSData(record);
        Require(smoothed.GetGPSData(twin) == given, "smoothing changes no end of a record");
        endsLeft -= given ? 0 : 1;
        if (given) {
            Require(record.lonLat.lon != 0.0, "no record without a longitude");
            Require(BytesOf(WithoutMotion(record)) == BytesOf(WithoutMotion(twin)),
                    "smoothing smooths motion");
            RequireSame(plain, record);
            RequireSame(smoothed, twin);
        }
    }
    _GPS_Data record;
    Require(!plain.GetGPSData(record), "the end of the file is the end");
    return 0;
}
