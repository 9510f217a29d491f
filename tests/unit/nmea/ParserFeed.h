// ParserFeed.h: one feed of sentences into one record, and the sentences that the parser tests share.
#pragma once

#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "GpsLib/nmea/CNMEAParser.h"
#include "GpsLib/records/GPSRecords.h"
#include "tests/support/Row.h"
#include "tests/support/Sentence.h"

using support::BytesOf;
using support::Sentence;

// At 10:15:19, with every field that is read.
constexpr const char* GGA = "GPGGA,101519.75,4807.038,N,01131.0,W,1,08,0.9,545.4,M,46.9,M,,";
constexpr const char* GLL = "GPGLL,4807.038,N,01131.0,W,101519.75,A,D";
constexpr const char* RMC = "GPRMC,101519.75,A,4807.038,N,01131.0,W,022.4,084.4,230394,003.1,W";
constexpr const char* VTG = "GPVTG,54.7,T,034.4,M,005.5,N,10.2,K";
constexpr const char* ZDA = "GPZDA,101519.75,04,07,2026,00,00";
constexpr const char* GSA = "GPGSA,A,3,04,05,,09,12,,,24,,,,,2.5,1.3,2.1";

/// Result: the body with another text in one of its fields, which are counted from 1.
inline std::string With(std::string body, int field, const std::string& text)
{
    std::size_t begin = 0;
    for (; field > 0; --field) {
        begin = body.find(',', begin) + 1;
    }
    return body.replace(begin, body.find(',', begin) - begin, text);
}

/// A terminated copy in a heap block of its exact size: one byte read too far is one that the sanitizer sees.
inline std::unique_ptr<char[]> Terminated(std::string_view text)
{
    return support::ExactCopy(std::string(text) + '\0');
}

/// A cleared record and an accumulator of its own.
struct ParserFeed {
    static constexpr unsigned char MARK =
        0xA5; // has neither the status bit in `mask` nor a 0 or 1 in `valid`

    _GPS_Data record = support::NoFix();
    _GPS_Satellite accumulator;

    ParserFeed() { GPS::CNMEAParser::ResetAccumulator(accumulator); }

    /// Fills the record with what no parser writes.
    void Mark() { std::memset(static_cast<void*>(&record), MARK, sizeof record); }

    /// Result: the parser's own, which Parse drops. A refusal must leave every byte of the record.
    bool TakeRaw(std::string_view sentence)
    {
        const auto before = BytesOf(record);
        const bool taken = GPS::CNMEAParser().Dispatch(Terminated(sentence).get(), record, accumulator);
        if (!taken) {
            EXPECT_EQ(BytesOf(record), before) << sentence;
        }
        return taken;
    }
    bool Take(std::string_view body) { return TakeRaw(Sentence(body)); }
};
