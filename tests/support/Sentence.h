// Sentence.h: sentences and records in short, for tests.
#pragma once

#include <array>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include "GpsLib/records/GPSRecords.h"

namespace support
{

/// body: what stands between "$" and "*". Result: the whole sentence with its checksum, CR and LF.
inline std::string Sentence(std::string_view body)
{
    constexpr char DIGITS[] = "0123456789ABCDEF";
    unsigned sum = 0;
    for (const char letter : body) {
        sum ^= static_cast<unsigned char>(letter);
    }
    return "$" + std::string(body) + "*" + DIGITS[sum / 16] + DIGITS[sum % 16] + "\r\n";
}

/// The sentence with a checksum that is wrong in its last digit.
inline std::string Spoilt(std::string sentence)
{
    char& digit = sentence.at(sentence.size() - 3);
    digit = digit == '0' ? '1' : '0';
    return sentence;
}

/// A GGA at whole degrees east and north, with quality 1 for a fix or 0 for none.
inline std::string Gga(int lon, int lat, int quality = 1)
{
    const std::string degreesLon = std::to_string(1000 + lon).substr(1);
    const std::string degreesLat = std::to_string(100 + lat).substr(1);
    return Sentence("GPGGA,101500," + degreesLat + "00.000,N," + degreesLon + "00.000,E," +
                    std::to_string(quality) + ",08,0.9,12.5,M,,M,,");
}

/// A VTG with a course of 90 degrees.
inline std::string Vtg(const std::string& kmh)
{
    return Sentence("GPVTG,90.0,T,,M,,N," + kmh + ",K");
}

/// A cleared record, which is an epoch that parsed nothing.
inline _GPS_Data NoFix()
{
    _GPS_Data record;
    ClearRecord(record);
    return record;
}

/// A cleared record but for a fix at the position.
inline _GPS_Data FixAt(double lon, double lat)
{
    _GPS_Data record = NoFix();
    record.valid = 1;
    record.lonLat = {lon, lat};
    return record;
}

/// second: [s] of the day.
inline void SetTime(_GPS_Data& record, int second)
{
    record.mask |= GPS_MASK_TIME;
    record.time.hour = static_cast<std::uint8_t>(second / 3600);
    record.time.minute = static_cast<std::uint8_t>(second / 60 % 60);
    record.time.second = static_cast<std::uint8_t>(second % 60);
}

/// The whole block, padding included.
template <class BLOCK>
std::array<unsigned char, sizeof(BLOCK)> BytesOf(const BLOCK& block)
{
    std::array<unsigned char, sizeof(BLOCK)> bytes;
    std::memcpy(bytes.data(), &block, bytes.size());
    return bytes;
}

/// The bytes in a block of exactly their size, so that the sanitizer sees one byte read too far.
inline std::unique_ptr<char[]> ExactCopy(const std::string& bytes)
{
    std::unique_ptr<char[]> copy(new char[bytes.size()]);
    std::memcpy(copy.get(), bytes.data(), bytes.size());
    return copy;
}

} // namespace support
