// Where sentences begin and end in a stream, and whether their checksum is right.
#include "tests/layers/adapter/Adapted.h"
#include "tests/support/Row.h"

namespace
{

using support::Adapted;
using support::Sentence;
using support::Sentences;
using support::operator<<;

using StreamCase = support::Row<std::string, std::string>;

class Stream : public testing::TestWithParam<StreamCase>
{
};

TEST_P(Stream, GivesWholeSentences)
{
    EXPECT_EQ(Adapted(GetParam().given), GetParam().expected);
}

std::string WithEnd(const std::string& body, const char* end)
{
    const std::string sentence = Sentence(body);
    return sentence.substr(0, sentence.size() - 2) + end;
}

const std::string VTG = "GPVTG,84.4,T,,M,22.4,N,41.5,K";
const std::string GN_VTG = "GNVTG,84.4,T,,M,22.4,N,41.5,K";
const std::string GGA = "GPGGA,101500,3114.25,N,12129.5,E,1,08,0.9,12.5,M,,M,,";

const StreamCase FRAMES[] = {
    {"LineFeedsAndCarriageReturnsStay",
     WithEnd(VTG, "\n") + WithEnd(VTG, "\r\n") + WithEnd(VTG, "\r\r\n") + WithEnd(GN_VTG, "\n"),
     WithEnd(VTG, "\n") + WithEnd(VTG, "\r\n") + WithEnd(VTG, "\r\r\n") + WithEnd(VTG, "\n")},
    {"AnotherSentenceEndsTheLine", WithEnd(VTG, "") + WithEnd(VTG, "\r") + Sentence(VTG),
     Sentences({VTG, VTG, VTG})},
    {"LastLineOfAStreamWithGgaStaysOpen", Sentence(GGA) + WithEnd(GN_VTG, ""),
     Sentence(GGA) + WithEnd(VTG, "")},
    {"LastLineOfAStreamWithoutIsEnded", WithEnd(VTG, ""), Sentence(VTG)},
    {"BytesBetweenSentencesGo",
     "\r\n\xB5\x62" + Sentence(VTG) + std::string("\0\n!A*00\r\n", 9) + Sentence(GGA),
     Sentence(VTG) + Sentence(GGA)},
    {"ATornSentenceOfGpGetsALineOfItsOwn", "$GPRMC,0455$PSMDCN,4*1F\n" + Sentence(VTG),
     "$GPRMC,0455\r\n" + Sentence(VTG)},
    {"ATornSentenceOfAnotherGoes", "$GNRMC,0455" + Sentence(VTG), Sentence(VTG)},
    {"NoListenerLooksAtLessThanNineBytes", "$GP$GPGG\r\n$GPGGA,\r\n" + Sentence(VTG),
     "$GPGGA,\r\n" + Sentence(VTG)},
    {"ALineWithoutEndGoesUpToTheNextSentence", "$GPGGA," + std::string(5000, 'x') + Sentence(VTG),
     Sentence(VTG)},
    {"BytesBehindTheDigitsGoWhereTheLineIsTooLong",
     WithEnd(VTG, " x\r\n") + WithEnd(VTG, (std::string(60, ' ') + "\n").c_str()),
     WithEnd(VTG, " x\r\n") + WithEnd(VTG, "\n")},
    {"AsterisksBehindTheFirstAreNoneOfTheSums", WithEnd(GN_VTG, "*99\r\n"), Sentence(VTG)},
};
INSTANTIATE_TEST_SUITE_P(Frames, Stream, testing::ValuesIn(FRAMES), support::RuleName());

const StreamCase CHECKSUMS[] = {
    {"WrongOfGpStays", support::Spoilt(Sentence(GGA)), support::Spoilt(Sentence(GGA))},
    {"WrongOfAnotherGoes", support::Spoilt(Sentence(GN_VTG)), ""},
    {"MissingOfGpStays", "$GPVTG,84.4\r\n$GPVTG,84.4*\r\n$GPVTG,84.4*4\r\n",
     "$GPVTG,84.4\r\n$GPVTG,84.4*\r\n$GPVTG,84.4*4\r\n"},
    {"MissingOfAnotherGoes", "$GNVTG,84.4\r\n$GNVTG,84.4*\r\n$GNVTG,84.4*4", ""},
    {"SmallDigitsComeOutLarge", "$GPTXT,8*5b\r\n$GPTXT,z*19\r\n", "$GPTXT,8*5B\r\n$GPTXT,z*19\r\n"},
    {"ANulIsNoPartOfASentence", "$GNTXT,01" + std::string(1, '\0') + "*43\r\n", ""},
};
INSTANTIATE_TEST_SUITE_P(Checksums, Stream, testing::ValuesIn(CHECKSUMS), support::RuleName());

} // namespace
