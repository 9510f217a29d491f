// NmeaReading.h: what the library's parser makes of a text of sentences.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "GpsLib/nmea/CNMEAParser.h"

/// Result: the lines of a text, each with its line end.
inline std::vector<std::string> LinesOf(const std::string& text)
{
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text.find('\n', at);
        lines.push_back(text.substr(at, end == std::string::npos ? end : end + 1 - at));
        at += lines.back().size();
    }
    return lines;
}

/// Reads sentences into one record, as a feed does.
class NmeaReading
{
public:
    NmeaReading()
    {
        ClearRecord(record);
        GPS::CNMEAParser::ResetAccumulator(group);
    }

    /// Result: whether the sentence's own parser took it.
    bool Take(const std::string& line) { return parser.Dispatch(line.c_str(), record, group); }

    _GPS_Data record;

private:
    GPS::CNMEAParser parser;
    _GPS_Satellite group;
};
