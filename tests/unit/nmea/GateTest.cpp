// The front of the parser: length and talker, checksum, dispatch.
#include <optional>

#include "tests/unit/nmea/ParserFeed.h"

namespace
{

using support::operator<<;

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

struct GateCase {
    const char* rule;
    OUTCOME outcome;
    std::optional<std::string> sentence;
    std::int32_t length = 82;
    std::int32_t format = 0;
};

class Gate : public testing::TestWithParam<GateCase>
{
};

TEST_P(Gate, AcceptsOrRefuses)
{
    const GateCase& gate = GetParam();
    ParserFeed feed;
    feed.Mark();
    const auto before = BytesOf(feed.record);
    const auto exact = gate.sentence ? Terminated(*gate.sentence) : nullptr;
    EXPECT_EQ(GPS::CNMEAParser().Parse(exact.get(), gate.length, gate.format, feed.record, feed.accumulator),
              gate.outcome != REFUSED);
    EXPECT_EQ(BytesOf(feed.record) != before, gate.outcome == STORED);
}

const GateCase GATE_CASES[] = {
    {"LengthSeven", REFUSED, WHOLE, 7},
    {"LengthEight", STORED, WHOLE, 8},
    {"TrueLength82", STORED, OfLength(82), 82},
    {"TrueLength83", REFUSED, OfLength(83), 83},
    {"LengthBelowZero", REFUSED, WHOLE, -1},
    {"FormatOne", REFUSED, WHOLE, 82, 1},
    {"FormatMinusOne", REFUSED, WHOLE, 82, -1},
    {"Null", REFUSED, std::nullopt},
    {"Empty", REFUSED, ""},
    {"DollarAlone", REFUSED, "$"},
    {"HalfATalker", REFUSED, "$G"},
    {"TalkerAlone", IGNORED, "$GP"},
    {"TypeCutShort", IGNORED, "$GPGG"},
    {"OtherTalker", REFUSED, OfType("GNVTG")},
    {"NoDollar", REFUSED, "!" + WHOLE.substr(1)},
    {"SevenLettersCountByThree", STORED, OfType("GPVTGXY")},
    {"UnknownFirstLetter", IGNORED, OfType("GPXTG")},
    {"UnknownSecondLetter", IGNORED, OfType("GPVXG")},
    {"UnknownThirdLetter", IGNORED, OfType("GPVTX")},
    {"LowerCaseType", IGNORED, OfType("GPvtg")},
    {"UnknownTypeWithWrongChecksum", IGNORED, "$GPTXT,01*00\r\n"},
    {"WrongChecksum", IGNORED, support::Spoilt(WHOLE)},
    {"NoLineEnd", STORED, WHOLE.substr(0, WHOLE.size() - 2)},
    {"ParserThatRefuses", IGNORED, Sentence(With(VTG, 7, ""))},
};
INSTANTIATE_TEST_SUITE_P(Rules, Gate, testing::ValuesIn(GATE_CASES), support::RuleName());

TEST(Gate, EachParserTestsTalkerAndChecksumItself)
{
    for (const std::string body : {GGA, GLL, RMC, VTG, ZDA, GSA, "GPGSV,1,1,1,05,10,100,30"}) {
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
