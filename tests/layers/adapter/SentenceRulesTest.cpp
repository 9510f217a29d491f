// What becomes of each kind of sentence.
#include "tests/layers/adapter/Adapted.h"
#include "tests/support/Row.h"

namespace
{

using support::Adapted;
using support::Sentences;
using support::operator<<;

using Bodies = std::vector<std::string>;
using SentenceCase = support::Row<Bodies, Bodies>;

class SentenceRules : public testing::TestWithParam<SentenceCase>
{
};

TEST_P(SentenceRules, Hold)
{
    EXPECT_EQ(Adapted(Sentences(GetParam().given)), Sentences(GetParam().expected));
}

const std::string FIX = "3114.2500,N,12129.5000,E"; // its place
const std::string TAIL = ",08,0.9,12.5,M,7.9,M,,";

/// A GGA with what stands in front of its place, and its quality.
std::string Gga(const std::string& front, const std::string& quality = "1")
{
    return front + "," + FIX + "," + quality + TAIL;
}

const SentenceCase TAKEN_FOR_GP[] = {
    {"TheFiveTypes",
     {"GNRMC,101500,A,3114.25,N,12129.5,E,22.4,84.4,230306,,,A", "GLGLL,3114.25,N,12129.5,E,101500,A,A",
      "GAVTG,84.4,T,,M,22.4,N,41.5,K,A", "BDZDA,101500,23,03,2006,00,00", Gga("QZGGA,101500.00")},
     {"GPRMC,101500,A,3114.25,N,12129.5,E,22.4,84.4,230306,,,A", "GPGLL,3114.25,N,12129.5,E,101500,A,A",
      "GPVTG,84.4,T,,M,22.4,N,41.5,K,A", "GPZDA,101500,23,03,2006,00,00", Gga("GPGGA,101500.00")}},
    {"NoOtherOne",
     {"GNGST,101500,1,2,3", "GNTXT,01", "GLGSV,1,1,01,65,10,20,30", "GNGSV,1,1,01,05,10,20,30"},
     {}},
    {"NoOtherTalker",
     {"APGLL,3114.25,N,12129.5,E,101500,A", "PGRME,1.0,M", "PUBX,00", "GPTXT,01"},
     {"GPTXT,01"}},
};
INSTANTIATE_TEST_SUITE_P(TakenForGp, SentenceRules, testing::ValuesIn(TAKEN_FOR_GP), support::RuleName());

const SentenceCase ONE_FIX_ONE_EPOCH[] = {
    {"OtherTalkerAtTheSameTime", {Gga("GNGGA,101500.00"), Gga("GPGGA,101500")}, {Gga("GPGGA,101500.00")}},
    {"OtherTalkerLater",
     {Gga("GNGGA,101500"), Gga("GPGGA,101501")},
     {Gga("GPGGA,101500"), Gga("GPGGA,101501")}},
    {"SameTalkerAndTimeAnotherFix",
     {Gga("GNGGA,101500", "1"), Gga("GNGGA,101500", "2")},
     {Gga("GPGGA,101500", "1"), Gga("GPGGA,101500", "2")}},
    {"SameFixAgain", {Gga("GNGGA,101500"), Gga("GNGGA,101500")}, {Gga("GPGGA,101500")}},
    {"SameFixAgainOfGp",
     {Gga("GPGGA,101500"), Gga("GPGGA,101500")},
     {Gga("GPGGA,101500"), Gga("GPGGA,101500")}},
    {"WithoutFixAgain",
     {"GNGGA,,,,,,0,,,,,,,,", "GNGGA,,,,,,0,,,,,,,,"},
     {"GPGGA,,,,,,0,,,,,,,,", "GPGGA,,,,,,0,,,,,,,,"}},
    {"OtherTalkerWithoutTime",
     {"GNGGA,,,,,,0,,,,,,,,", "GLGGA,,,,,,0,,,,,,,,", "GNGGA,,,,,,0,1,,,,,,,"},
     {"GPGGA,,,,,,0,,,,,,,,", "GPGGA,,,,,,0,1,,,,,,,"}},
    {"OtherTalkerWithoutTimeTwiceRunningIsTheOneByNow",
     {"GNGGA,,,,,,0,,,,,,,,", "GPGGA,,,,,,0,1,,,,,,,", "GPGGA,,,,,,0,2,,,,,,,"},
     {"GPGGA,,,,,,0,,,,,,,,", "GPGGA,,,,,,0,2,,,,,,,"}},
};
INSTANTIATE_TEST_SUITE_P(OneFixOneEpoch, SentenceRules, testing::ValuesIn(ONE_FIX_ONE_EPOCH),
                         support::RuleName());

const SentenceCase QUALITIES[] = {
    {"Precise", {Gga("GPGGA,101500", "3")}, {Gga("GPGGA,101500", "1")}},
    {"Float", {Gga("GNGGA,101500", "5")}, {Gga("GPGGA,101500", "2")}},
    {"Augmented", {Gga("GNGGA,101500", "9")}, {Gga("GPGGA,101500", "2")}},
    {"RealTimeAndEstimatedStay",
     {Gga("GNGGA,101500", "4"), Gga("GNGGA,101501", "6")},
     {Gga("GPGGA,101500", "4"), Gga("GPGGA,101501", "6")}},
};
INSTANTIATE_TEST_SUITE_P(Quality, SentenceRules, testing::ValuesIn(QUALITIES), support::RuleName());

const std::string DOPS = ",2.1,1.2,1.7";
const std::string TWELVE = "01,02,03,04,05,06,07,08,09,10,11,12";
const std::string NO_SATELLITE = ",,,,,,,,,,,";

const SentenceCase SATELLITES_USED[] = {
    {"SystemNumberOneOfGn",
     {"GNGSA,A,3,03,33,,,,,,,,,,75" + DOPS + ",1"},
     {"GPGSA,A,3,03,33,,,,,,,,,," + DOPS}},
    {"NoSystemNumberButASatelliteOfGps",
     {"GNGSA,A,3,65,32,,,,,,,,,,0" + DOPS},
     {"GPGSA,A,3,,32,,,,,,,,,," + DOPS}},
    {"EmptySystemNumberOfGp", {"GPGSA,A,1" + std::string(16, ',')}, {"GPGSA,A,1" + std::string(15, ',')}},
    {"AnotherSystemBehindGps",
     {"GNGSA,A,3,03" + NO_SATELLITE + DOPS, "GNGSA,A,3,03" + NO_SATELLITE + DOPS + ",3",
      "GLGSA,A,3,03" + NO_SATELLITE + DOPS, "GNGSA,A,3,65" + NO_SATELLITE + DOPS,
      "GPGSA,A,3,04" + NO_SATELLITE + DOPS + ",4"},
     {"GPGSA,A,3,03" + NO_SATELLITE + DOPS}},
    {"AnotherSystemAloneSinceTheLastGga",
     {"GPGSA,A,3,03" + NO_SATELLITE + DOPS, Gga("GNGGA,101500"), "GLGSA,A,3,65" + NO_SATELLITE + DOPS},
     {"GPGSA,A,3,03" + NO_SATELLITE + DOPS, Gga("GPGGA,101500"), "GPGSA,A,3," + NO_SATELLITE + DOPS}},
    {"TheNextBehindAFullTwelveAddsItsOwn",
     {"GNGSA,A,3," + TWELVE + DOPS + ",1", "GNGSA,A,3,13,14,12,,,,,,,,," + DOPS + ",1",
      "GNGSA,A,3,15" + NO_SATELLITE + DOPS + ",1"},
     {"GPGSA,A,3," + TWELVE + DOPS, "GPGSA,A,3," + TWELVE + ",13,14" + DOPS,
      "GPGSA,A,3,15" + NO_SATELLITE + DOPS}},
    {"OneMoreThanTwelveLeavesAPlaceSoThatNoSystemNumberSeemsToFollow",
     {"GPGSA,A,3," + TWELVE + DOPS, "GPGSA,A,3,13" + NO_SATELLITE + ",2,1,1"},
     {"GPGSA,A,3," + TWELVE + DOPS, "GPGSA,A,3," + TWELVE + ",13,,2,1,1"}},
    {"AsFarAsEightyTwoCharactersGo",
     {"GPGSA,A,3," + TWELVE + DOPS, "GPGSA,A,3,13,14,15,16,17,18,19,20,21,22,23,24" + DOPS},
     {"GPGSA,A,3," + TWELVE + DOPS, "GPGSA,A,3," + TWELVE + ",13,14,15,16,17,18" + DOPS}},
    {"TheNextCycleBeginsAnew",
     {"GPGSA,A,3," + TWELVE + DOPS, "GPZDA,101500,23,03,2006,00,00", "GPGSA,A,3,13" + NO_SATELLITE + DOPS},
     {"GPGSA,A,3," + TWELVE + DOPS, "GPZDA,101500,23,03,2006,00,00", "GPGSA,A,3,13" + NO_SATELLITE + DOPS}},
    {"OddForms",
     {"GPGSA,A,3,03,65" + DOPS, "GNGSA,A,3,03" + DOPS, "GPGSA,A,3,65,," + TWELVE + DOPS},
     {"GPGSA,A,3,03,65" + DOPS, "GPGSA,A,3,65,," + TWELVE + DOPS}},
};
INSTANTIATE_TEST_SUITE_P(SatellitesUsed, SentenceRules, testing::ValuesIn(SATELLITES_USED),
                         support::RuleName());

const std::string ENTRY = ",03,40,083,46";

const SentenceCase SATELLITES_IN_VIEW[] = {
    {"SignalOneAmongOthers",
     {"GPGSV,2,1,05" + ENTRY + ",1", "GPGSV,2,2,05,24,,,,1", "GPGSV,2,1,05" + ENTRY + ",6",
      "GPGSV,2,2,05,24,,,,6"},
     {"GPGSV,2,1,05" + ENTRY, "GPGSV,2,2,05,24,,,"}},
    {"TheOnlySignal",
     {"GPGSV,1,1,05" + ENTRY + ",5", "GPGSV,1,1,06" + ENTRY + ",5", "GPGSV,1,1,07" + ENTRY + ","},
     {"GPGSV,1,1,05" + ENTRY, "GPGSV,1,1,06" + ENTRY, "GPGSV,1,1,07" + ENTRY}},
    {"AnotherSignalTwiceRunningIsTheOnlyOneByNow",
     {"GPGSV,1,1,05" + ENTRY + ",1", "GPGSV,1,1,06" + ENTRY + ",5", "GPGSV,1,1,07" + ENTRY + ",5"},
     {"GPGSV,1,1,05" + ENTRY, "GPGSV,1,1,07" + ENTRY}},
    {"OneNumberingOverTheSignals",
     {"GPGSV,3,1,05" + ENTRY + ",1", "GPGSV,3,2,05" + ENTRY + ",6", "GPGSV,3,3,05" + ENTRY + ",8"},
     {"GPGSV,3,1,05" + ENTRY, "GPGSV,3,2,05", "GPGSV,3,3,05"}},
    {"ATornGroupIsNoSuchNumbering",
     {"GPGSV,3,1,05" + ENTRY + ",1", "GPGSV,3,1,05" + ENTRY + ",6", "GPGSV,3,2,05" + ENTRY + ",6"},
     {"GPGSV,3,1,05" + ENTRY}},
    {"NumbersOutsideTheRecord",
     {"GPGSV,1,1,04,193,1,2,3" + ENTRY + ",65,1,2,3,64,1,2,", "GPGSV,1,1,01,0,1,2,3"},
     {"GPGSV,1,1,04" + ENTRY + ",64,1,2,", "GPGSV,1,1,01"}},
    {"OlderFormWithEmptyEntries", {"GPGSV,1,1,01" + ENTRY + ",,,,"}, {"GPGSV,1,1,01" + ENTRY + ",,,,"}},
    {"EmptyEntriesGoWithTheSignalNumber", {"GPGSV,1,1,01" + ENTRY + ",,,,,1"}, {"GPGSV,1,1,01" + ENTRY}},
    {"OddForms",
     {"GPGSV,1,1", "GPGSV,1,1,01,03,40", "GPGSV,1,1,01,03,40,083,46,10"},
     {"GPGSV,1,1", "GPGSV,1,1,01,03,40", "GPGSV,1,1,01,03,40,083,46,10"}},
};
INSTANTIATE_TEST_SUITE_P(SatellitesInView, SentenceRules, testing::ValuesIn(SATELLITES_IN_VIEW),
                         support::RuleName());

struct LengthCase {
    const char* rule;
    int excess;        // [byte] over 82
    std::string given; // with "#" for as many zeros as it takes
    std::string expected;
};

class Length : public testing::TestWithParam<LengthCase>
{
};

TEST_P(Length, IsCutToEightyTwo)
{
    const std::size_t length = Sentences({GetParam().given}).size() - 1;
    const std::string zeros(82 + static_cast<std::size_t>(GetParam().excess) - length, '0');
    const auto filled = [&](std::string body) { return body.replace(body.find('#'), 1, zeros); };
    const std::string expected = GetParam().expected;
    EXPECT_EQ(Adapted(Sentences({filled(GetParam().given)})),
              expected.empty() ? "" : Sentences({filled(expected)}));
}

const std::string PLACE = "3114.2500001,N,12129.500000678,E,1,08,#,"; // with much in the dilution

const LengthCase LENGTHS[] = {
    {"NotByMore", 0, "GPGGA,101500.0," + PLACE + "1.2,M,-2.3,M,1,20",
     "GPGGA,101500.0," + PLACE + "1.2,M,-2.3,M,1,20"},
    {"Station", 1, "GPGGA,101500.0," + PLACE + "1.2,M,-2.3,M,1,20",
     "GPGGA,101500.0," + PLACE + "1.2,M,-2.3,M,1,"},
    {"Age", 3, "GNGGA,101500.0," + PLACE + "1.2,M,-2.3,M,1,20", "GPGGA,101500.0," + PLACE + "1.2,M,-2.3,M,,"},
    {"Separation", 1, "GPGGA,101500.0," + PLACE + "1.2,M,-2.3,M,,",
     "GPGGA,101500.0," + PLACE + "1.2,M,-2,M,,"},
    {"ZerosOfTheSecond", 3, "GPGGA,101500.50," + PLACE + "1.2,M,-2.3,M,,",
     "GPGGA,101500.5," + PLACE + "1.2,M,-2,M,,"},
    {"Altitude", 1, "GPGGA,101500.5," + PLACE + "1.234,M,-2,M,,",
     "GPGGA,101500.5," + PLACE + "1.23,M,-2,M,,"},
    {"Minutes", 4, "GPGGA,101500.5," + PLACE + "1.2,M,-2,M,,",
     "GPGGA,101500.5,3114.2500001,N,12129.5000006,E,1,08,#,1,M,-2,M,,"},
    {"MinutesOfBoth", 6, "GPGGA,101500.5," + PLACE + "1,M,-2,M,,",
     "GPGGA,101500.5,3114.25000,N,12129.50000,E,1,08,#,1,M,-2,M,,"},
    {"NoFurther", 7, "GPGGA,101500.5," + PLACE + "1,M,-2,M,,", ""},
    {"StatusOfRmc", 1, "GNRMC,101500,A,3114.25,N,12129.5,E,22.4#,84.4,230306,18.3,E,A,V",
     "GPRMC,101500,A,3114.25,N,12129.5,E,22.4#,84.4,230306,18.3,E,A"},
    {"VariationOfRmc", 7, "GPRMC,101500,A,3114.25,N,12129.5,E,22.4#,84.4,230306,18.3,E,A,V",
     "GPRMC,101500,A,3114.25,N,12129.5,E,22.4#,84.4,230306,,,A"},
    {"MinutesOfRmc", 1, "GPRMC,101500,A,3114.250001,N,12129.5,E,22.4#,84.4,230306,,,A",
     "GPRMC,101500,A,3114.25000,N,12129.5,E,22.4#,84.4,230306,,,A"},
    {"MinutesOfGll", 1, "GNGLL,3114.25,N,12129.500001,E,101500,A,A#",
     "GPGLL,3114.25,N,12129.50000,E,101500,A,A#"},
    {"NothingOfOthers", 1, "GPTXT,01.50#", ""},
};
INSTANTIATE_TEST_SUITE_P(Rules, Length, testing::ValuesIn(LENGTHS), support::RuleName());

TEST(Talkers, TheCallersSetReplacesTheirs)
{
    adapter::Talkers talkers;
    talkers.Clear();
    EXPECT_TRUE(talkers.Add("II"));
    for (const char* const talker : {"", "G", "GPS", "gn", "A,"}) {
        EXPECT_FALSE(talkers.Add(talker)) << talker;
    }
    EXPECT_EQ(Adapted(Sentences({"GNVTG,1", "IIVTG,2", "GPVTG,3"}), talkers),
              Sentences({"GPVTG,2", "GPVTG,3"}));
}

} // namespace
