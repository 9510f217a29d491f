// The replay: lines of a log through the parser of live data, up to the next usable GGA.
#include "GpsLib/log/CGPSLogDeviceImpl.h"

#include <cstring>

#include "GpsLib/nmea/CNMEAParser.h"
#include "GpsLib/nmea/ClosesEpoch.h"

namespace
{

constexpr std::int32_t LINE_SIZE = 255; // a longer line comes in pieces of 254 bytes, each judged by itself
constexpr std::int32_t END_OF_FILE = -1;

/// Gives a line with a bare LF its CR. buffer: room for one byte more and a terminator.
std::int32_t RepairLineEnd(char* line, std::int32_t length) noexcept
{
    if (length <= 2 || line[length - 1] != '\n' || line[length - 2] == '\r') {
        return length;
    }
    line[length - 1] = '\r';
    line[length] = '\n';
    line[length + 1] = '\0';
    return length + 1;
}

} // namespace

namespace GPS
{

bool CGPSLogDeviceImpl::OpenLogFileForRead(const char* path)
{
    if (path == nullptr) {
        return false;
    }
    readFile.reset(std::fopen(path, "rb"));
    smoothing.BeginDrive();
    return readFile != nullptr;
}

std::int32_t CGPSLogDeviceImpl::ReadLine(char* buffer, std::int32_t size)
{
    if (readFile == nullptr) {
        return 0;
    }
    if (std::fgets(buffer, size, readFile.get()) == nullptr) {
        *buffer = '\0';
        return END_OF_FILE;
    }
    return RepairLineEnd(buffer, static_cast<std::int32_t>(std::strlen(buffer)));
}

bool CGPSLogDeviceImpl::NextFix(_GPS_Data& record)
{
    if (readFile == nullptr) {
        return false;
    }
    ClearRecord(record);
    if (!GatherFix(record)) {
        return false;
    }
    smoothing.Smooth(record);
    lastData = record;
    return true;
}

/// Result: false when the file ends before a GGA finds a longitude in the record.
bool CGPSLogDeviceImpl::GatherFix(_GPS_Data& record)
{
    const CNMEAParser parser;
    char line[LINE_SIZE + 1] = {};
    for (std::int32_t length = ReadLine(line, LINE_SIZE); length > 0; length = ReadLine(line, LINE_SIZE)) {
        const auto format = static_cast<std::int32_t>(readFormat);
        if (!parser.Parse(line, length, format, record, accumulator)) {
            ClearRecord(record); // whatever the epoch had gathered is lost
        } else if (ClosesEpoch(line) && record.lonLat.lon != 0.0) {
            return true;
        }
    }
    return false;
}

bool CGPSLogDeviceImpl::GetGPSDataWithoutSate(_GPS_Data_Without_Sate& data) const noexcept
{
    if (lastData.valid == 0) {
        return false;
    }
    CopyToWithoutSate(lastData, data);
    return true;
}

bool CGPSLogDeviceImpl::GetWholeSate(_GPS_Satellite& satellite) const noexcept
{
    if (lastData.valid == 0) {
        return false;
    }
    satellite = lastData.satellite;
    return true;
}

} // namespace GPS
