// The front of the parser: length and talker, checksum, dispatch.
#include <optional>

#include "tests/unit/nmea/ParserFeed.h"

namespace
{

const std::string VTG = Sentence("GPVTG,54.7,T,034.4,M,005.5,N,10.2,K");

/// A VTG of a length, line end included; what pads it stands in a field that nothing reads.
std::string OfLength(std::size_t length)
{
    const std::size_t bare = Sentence("GPVTG,1,,,,,,2,").size();
    return Sentence("GPVTG,1,,,,,,2," + std::string(length - bare, 'x'));
}

struct GateCase {
    const char* rule;
    std::optional<std::string> sentence;
    std::int32_t length;
    std::int32_t format;
    bool accepted;
    bool stored;
};

void PrintTo(const GateCase& gate, std::ostream* out)
{
    *out << gate.sentence.value_or("null");
}

class Gate : public testing::TestWithParam<GateCase>
{
};

TEST_P(Gate, AcceptsOrRefuses)
{
    const GateCase& gate = GetParam();
    ParserFeed feed;
    feed.Mark();
    const RecordBytes before = BytesOf(feed.record);
    const auto exact = gate.sentence ? ExactCopy(*gate.sentence) : nullptr;
    EXPECT_EQ(GPS::CNMEAParser().Parse(exact.get(), gate.length, gate.format, feed.record, feed.accumulator),
              gate.accepted);
    EXPECT_EQ(BytesOf(feed.record) != before, gate.stored);
}

const GateCase GATE_CASES[] = {
    {"LengthSeven", VTG, 7, 0, false, false},
    {"LengthEight", VTG, 8, 0, true, true},
    {"TrueLength82", OfLength(82), 82, 0, true, true},
    {"TrueLength83", OfLength(83), 83, 0, false, false},
    {"LengthBelowZero", VTG, -1, 0, false, false},
    {"FormatOne", VTG, 82, 1, false, false},
    {"FormatMinusOne", VTG, 82, -1, false, false},
    {"Null", std::nullopt, 82, 0, false, false},
    {"Empty", "", 82, 0, false, false},
    {"DollarAlone", "$", 82, 0, false, false},
    {"HalfATalker", "$G", 82, 0, false, false},
    {"TalkerAlone", "$GP", 82, 0, true, false},
    {"TypeCutShort", "$GPGG", 82, 0, true, false},
    {"OtherTalker", Sentence("GNVTG,54.7,T,034.4,M,005.5,N,10.2,K"), 82, 0, false, false},
    {"Proprietary", Sentence("PGRME,15.0,M,45.0,M,25.0,M"), 82, 0, false, false},
    {"LowerCaseTalker", Sentence("gpVTG,54.7,T,034.4,M,005.5,N,10.2,K"), 82, 0, false, false},
    {"NoDollar", VTG.substr(1), 82, 0, false, false},
    {"SpaceBeforeTheDollar", " " + VTG, 82, 0, false, false},
    {"SevenLettersCountByThree", Sentence("GPVTGXY,54.7,T,034.4,M,005.5,N,10.2,K"), 82, 0, true, true},
    {"UnknownFirstLetter", Sentence("GPXTG,54.7,T,034.4,M,005.5,N,10.2,K"), 82, 0, true, false},
    {"UnknownSecondLetter", Sentence("GPVXG,54.7,T,034.4,M,005.5,N,10.2,K"), 82, 0, true, false},
    {"UnknownThirdLetter", Sentence("GPVTX,54.7,T,034.4,M,005.5,N,10.2,K"), 82, 0, true, false},
    {"LettersOfTwoTypes", Sentence("GPGLA,4807.038,N,01131.0,E,101519,A"), 82, 0, true, false},
    {"LowerCaseType", Sentence("GPvtg,54.7,T,034.4,M,005.5,N,10.2,K"), 82, 0, true, false},
    {"UnknownTypeWithWrongChecksum", "$GPTXT,01*00\r\n", 82, 0, true, false},
    {"WrongChecksum", "$GPVTG,54.7,T,034.4,M,005.5,N,10.2,K*00\r\n", 82, 0, true, false},
    {"NoLineEnd", VTG.substr(0, VTG.size() - 2), 82, 0, true, true},
    {"ParserThatRefuses", Sentence("GPVTG,54.7"), 82, 0, true, false},
};
INSTANTIATE_TEST_SUITE_P(Rules, Gate, testing::ValuesIn(GATE_CASES), RuleName<GateCase>);

TEST(Gate, ParsersTestTheTalkerThemselves)
{
    ParserFeed feed;
    EXPECT_FALSE(feed.Take("GNGGA,101519,4807.038,N,01131.0,E,1,08,0.9,545.4,M,,"));
    EXPECT_FALSE(feed.Take("GNGSV,1,1,1,05,10,100,30"));
    EXPECT_FALSE(GPS::CNMEAParser().Dispatch(nullptr, feed.record, feed.accumulator));
    EXPECT_FALSE(feed.TakeRaw(""));
    EXPECT_FALSE(GPS::CNMEAParser().IsGPSentence(nullptr));
}

struct ChecksumCase {
    const char* rule;
    const char* sentence;
    bool holds;
};

// By hand: 'G' ^ 'P' ^ 'G' ^ 'G' ^ 'A' = 0x56, with 'L' at the end 0x5B.
const ChecksumCase CHECKSUM_CASES[] = {
    {"Digits", "$GPGGA*56\r\n", true},
    {"UpperCaseLetter", "$GPGGL*5B", true},
    {"LowerCaseLetter", "$GPGGL*5b", false},
    {"FirstDigitWrong", "$GPGGA*46", false},
    {"SecondDigitWrong", "$GPGGA*57", false},
    {"NoAsterisk", "$GPGGA56\r\n", false},
    {"NoDigits", "$GPGGA*", false},
    {"OneDigit", "$GPGGA*5", false},
    {"ZeroIsTwoDigits", "$GG*00", true},
    {"EarlierAsteriskEndsTheSum", "$GPGGA*56,12*99", true},
    {"LaterChecksumDoesNotCount", "$GPGGA*00,12*56", false},
    {"ByteAbove7F", "$GPGGA\x80*D6", true},
    {"ByteFF", "$GPGGA\xFF*A9", true},
    {"AsteriskInPlaceOfTheDollarEndsNothing", "*01", true}, // '0' ^ '1'
    {"Empty", "", false},
    {"NoText", "$*00", false},
    {"NoTextNorDollar", "*", false},
};

TEST(Checksum, Holds)
{
    for (const ChecksumCase& test : CHECKSUM_CASES) {
        EXPECT_EQ(GPS::CNMEAParser().VerifyChecksum(ExactCopy(test.sentence).get()), test.holds) << test.rule;
    }
}

TEST(Checksum, OfATextIsTwoUpperCaseDigits)
{
    const GPS::CNMEAParser parser;
    char digits[3] = "--";
    EXPECT_TRUE(parser.ComputeChecksum("GPGGL", digits));
    EXPECT_STREQ(digits, "5B");
    EXPECT_TRUE(parser.ComputeChecksum("GPGGA*", digits)); // an asterisk is a byte like any other here
    EXPECT_STREQ(digits, "7C");
    EXPECT_FALSE(parser.ComputeChecksum("", digits));
    EXPECT_FALSE(parser.ComputeChecksum(nullptr, digits));
    EXPECT_STREQ(digits, "7C");
    EXPECT_FALSE(parser.ComputeChecksum("GPGGA", nullptr));
    EXPECT_FALSE(parser.VerifyChecksum(nullptr));
}

} // namespace
