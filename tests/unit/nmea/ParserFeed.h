// ParserFeed.h: one feed of sentences into one record, and the table form that the parser tests share.
#pragma once

#include <array>
#include <cstring>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "GpsLib/nmea/CNMEAParser.h"
#include "GpsLib/records/GPSRecords.h"
#include "tests/support/Sentence.h"

using support::Sentence;

using RecordBytes = std::array<unsigned char, sizeof(_GPS_Data)>;

/// The whole block, padding included.
inline RecordBytes BytesOf(const _GPS_Data& record)
{
    RecordBytes bytes;
    std::memcpy(bytes.data(), &record, bytes.size());
    return bytes;
}

/// A terminated copy in a heap block of its exact size: one byte read too far is one that the sanitizer sees.
inline std::unique_ptr<char[]> ExactCopy(std::string_view text)
{
    auto copy = std::make_unique<char[]>(text.size() + 1);
    std::memcpy(copy.get(), text.data(), text.size());
    return copy;
}

/// A cleared record and an accumulator of its own.
struct ParserFeed {
    static constexpr unsigned char MARK =
        0xA5; // has neither the status bit in `mask` nor a 0 or 1 in `valid`

    _GPS_Data record;
    _GPS_Satellite accumulator;

    ParserFeed()
    {
        ClearRecord(record);
        GPS::CNMEAParser::ResetAccumulator(accumulator);
    }

    /// Fills the record with what no parser writes.
    void Mark() { std::memset(static_cast<void*>(&record), MARK, sizeof record); }

    /// Result: the parser's own, which Parse drops. A refusal must leave every byte of the record.
    bool TakeRaw(std::string_view sentence)
    {
        const RecordBytes before = BytesOf(record);
        const bool taken = GPS::CNMEAParser().Dispatch(ExactCopy(sentence).get(), record, accumulator);
        if (!taken) {
            EXPECT_EQ(BytesOf(record), before) << sentence;
        }
        return taken;
    }
    bool Take(std::string_view body) { return TakeRaw(Sentence(body)); }
};

using Change = std::function<void(_GPS_Data&)>;

inline Change Also(const Change& first, const Change& then)
{
    return [first, then](_GPS_Data& record) {
        first(record);
        then(record);
    };
}

/// One sentence offered to a marked record. change: all that it may do there; null when it is refused.
struct WalkCase {
    const char* rule;
    std::string body;
    Change change;
};

inline void PrintTo(const WalkCase& walk, std::ostream* out)
{
    *out << walk.body;
}

template <class CASE>
std::string RuleName(const testing::TestParamInfo<CASE>& info)
{
    return info.param.rule;
}

class WalkTest : public testing::TestWithParam<WalkCase>
{
protected:
    void Check() const
    {
        ParserFeed feed;
        feed.Mark();
        ParserFeed expected;
        expected.Mark();
        EXPECT_EQ(feed.Take(GetParam().body), GetParam().change != nullptr);
        if (GetParam().change != nullptr) {
            GetParam().change(expected.record);
        }
        EXPECT_EQ(BytesOf(feed.record), BytesOf(expected.record));
    }
};
