// The front of the parser: length and talker, checksum, dispatch.
#include <optional>

#include "tests/unit/nmea/ParserFeed.h"

namespace
{

const std::string WHOLE = Sentence(VTG);

/// A VTG of a length, line end included; what pads it stands in a field that nothing reads.
std::string OfLength(std::size_t length)
{
    return Sentence(With(VTG, 2, std::string(length - Sentence(With(VTG, 2, "")).size(), 'x')));
}

std::string OfType(const std::string& type)
{
    return Sentence(With(VTG, 0, type));
}

enum OUTCOME { REFUSED, IGNORED, STORED };

TEST(Gate, AcceptsOrRefuses)
{
    struct GateCase {
        const char* rule;
        OUTCOME outcome;
        std::optional<std::string> sentence;
        std::int32_t length = 82;
        std::int32_t format = 0;
    };
    const GateCase ROWS[] = {
        {"length seven", REFUSED, WHOLE, 7},
        {"length eight", STORED, WHOLE, 8},
        {"true length 82", STORED, OfLength(82), 82},
        {"true length 83", REFUSED, OfLength(83), 83},
        {"format one", REFUSED, WHOLE, 82, 1},
        {"null", REFUSED, std::nullopt},
        {"empty", REFUSED, ""},
        {"half a talker", REFUSED, "$G"},
        {"talker alone", IGNORED, "$GP"},
        {"type cut short", IGNORED, "$GPGG"},
        {"other talker", REFUSED, OfType("GNVTG")},
        {"no dollar", REFUSED, "!" + WHOLE.substr(1)},
        {"seven letters count by three", STORED, OfType("GPVTGXY")},
        {"unknown first letter", IGNORED, OfType("GPXTG")},
        {"unknown second letter", IGNORED, OfType("GPVXG")},
        {"unknown third letter", IGNORED, OfType("GPVTX")},
        {"wrong checksum", IGNORED, support::Spoilt(WHOLE)},
        {"no line end", STORED, WHOLE.substr(0, WHOLE.size() - 2)},
        {"parser that refuses", IGNORED, Sentence(With(VTG, 7, ""))},
    };
    for (const GateCase& row : ROWS) {
        ParserFeed feed;
        feed.Mark();
        const auto before = BytesOf(feed.record);
        const auto exact = row.sentence ? Terminated(*row.sentence) : nullptr;
        EXPECT_EQ(
            GPS::CNMEAParser().Parse(exact.get(), row.length, row.format, feed.record, feed.accumulator),
            row.outcome != REFUSED)
            << row.rule;
        EXPECT_EQ(BytesOf(feed.record) != before, row.outcome == STORED) << row.rule;
    }
}

const std::string BODIES[] = {GGA, GLL, RMC, VTG, ZDA, GSA, "GPGSV,1,1,1,05,10,100,30"};

TEST(Gate, TypesOneLetterAwayAreNoneOfTheSeven)
{
    const std::string types = "GGA GLL GSA GSV RMC VTG ZDA";
    for (std::string body : BODIES) {
        for (std::size_t at = 2; at < 5; ++at) {
            const char own = body[at];
            for (body[at] = 'A'; body[at] <= 'Z'; ++body[at]) {
                ParserFeed feed;
                EXPECT_TRUE(types.find(body.substr(2, 3)) != std::string::npos || !feed.Take(body)) << body;
            }
            body[at] = own;
        }
    }
}

TEST(Gate, EachParserTestsTalkerAndChecksumItself)
{
    for (const std::string& body : BODIES) {
        ParserFeed feed;
        const auto accumulator = BytesOf(feed.accumulator);
        EXPECT_FALSE(feed.Take("GN" + body.substr(2)));
        EXPECT_FALSE(feed.TakeRaw(support::Spoilt(Sentence(body))));
        EXPECT_EQ(BytesOf(feed.accumulator), accumulator) << body;
        EXPECT_TRUE(feed.Take(body));
    }
    ParserFeed feed;
    EXPECT_FALSE(GPS::CNMEAParser().Dispatch(nullptr, feed.record, feed.accumulator));
    EXPECT_FALSE(feed.TakeRaw(""));
    EXPECT_FALSE(GPS::CNMEAParser().IsGPSentence(nullptr));
}

TEST(Checksum, Holds)
{
    // By hand: 'G' ^ 'P' ^ 'G' ^ 'G' ^ 'A' = 0x56, with 'L' at the end 0x5B; '0' ^ '1' = 0x01, since an
    // asterisk in place of the dollar sign ends nothing.
    for (const char* const right : {"$GPGGA*56\r\n", "$GPGGL*5B", "$GG*00", "$GPGGA*56,12*99",
                                    "$GPGGA\x80*D6", "$GPGGA\xFF*A9", "*01"}) {
        EXPECT_TRUE(GPS::CNMEAParser().VerifyChecksum(Terminated(right).get())) << right;
    }
    for (const char* const wrong : {"$GPGGL*5b", "$GPGGA*46", "$GPGGA*57", "$GPGGA56\r\n", "$GPGGA*",
                                    "$GPGGA*5", "$GPGGA*00,12*56", "$*00", "*", ""}) {
        EXPECT_FALSE(GPS::CNMEAParser().VerifyChecksum(Terminated(wrong).get())) << wrong;
    }
    EXPECT_FALSE(GPS::CNMEAParser().VerifyChecksum(nullptr));
}

TEST(Checksum, OfATextIsTwoUpperCaseDigits)
{
    const GPS::CNMEAParser parser;
    char digits[3] = "--";
    EXPECT_TRUE(parser.ComputeChecksum("GPGGL", digits));
    EXPECT_STREQ(digits, "5B");
    EXPECT_TRUE(parser.ComputeChecksum("GPGGA*", digits)); // an asterisk is a byte like any other here
    EXPECT_FALSE(parser.ComputeChecksum("", digits));
    EXPECT_FALSE(parser.ComputeChecksum(nullptr, digits));
    EXPECT_STREQ(digits, "7C");
    EXPECT_FALSE(parser.ComputeChecksum("GPGGA", nullptr));
}

} // namespace
