// ParseByRules.h: one sentence through the parser, with what holds for every sentence.
#pragma once

#include <cstdint>
#include <string>

#include "GpsLib/nmea/CNMEAParser.h"

/// The working record and the GSV group of one feed of sentences.
struct Feed {
    _GPS_Data record;
    _GPS_Satellite group{};

    Feed() noexcept
    {
        ClearRecord(record);
        GPS::CNMEAParser::ResetAccumulator(group);
    }
};

/// Offers the text to `Parse` in a heap copy of its exact size and requires:
/// - a sentence that is refused, by the gate or by its parser, leaves the record untouched to the byte;
/// - satellites in view change with the last message of a GSV group alone, which leaves the group cleared;
/// - no value is ever out of what the record's fields can hold.
/// text: what stands behind a NUL isn't seen. length: as the caller counts it [byte].
void ParseByRules(const std::string& text, std::int32_t length, Feed& feed);
