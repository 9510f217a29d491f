// How chunks of bytes become sentences, and what each does to the epoch.
#include <vector>

#include "GpsLib/log/CGPSLogDeviceImpl.h"
#include "tests/support/FakeWorld.h"
#include "tests/support/Row.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/unit/device/ReceiverFeed.h"

namespace
{

using support::Sentence;
using support::operator<<;
using Ids = std::vector<std::uint16_t>;

const std::string GGA = support::Gga(121, 31);
const std::string NO_END = GGA.substr(0, GGA.size() - 2);
const std::string VTG = support::Vtg("50.0"); // its speed marks what an epoch has gathered
const std::string RMC = Sentence("GPRMC,101500,A,3100.000,N,12100.000,E,10.0,90.0,010203");
const std::string FOREIGN = Sentence("GLGSV,1,1,00");
const std::string NO_TEXT("\xFF\x80\x01\x00\xFF\x80\x01\xFF\x80", 9);

const Ids FIX = {1002, 1001};
const Ids NONE = {1004, 1001};
const Ids NONE_THEN_FIX = {1004, 1001, 1002, 1001};
constexpr double NO_FIX = -1.0;

/// A line of this many bytes that would close an epoch if it were taken.
std::string Line(std::size_t bytes)
{
    const std::string head = "$GPGGA,";
    return head + std::string(bytes - head.size(), 'x');
}

std::string Tail(const std::string& sentence, std::size_t bytes)
{
    return sentence.substr(sentence.size() - bytes);
}

struct StreamCase {
    const char* rule;
    std::vector<std::string> chunks;
    Ids events;
    double speed; // of the last epoch, or NO_FIX
};

const StreamCase STREAM_CASES[] = {
    {"ChunkIsCutAtTheSecondDollar", {VTG + GGA}, FIX, 50.0},
    {"EndOfChunkEndsASentence", {VTG, GGA}, FIX, 50.0},
    {"EmptyChunkChangesNothing", {VTG, "", GGA}, FIX, 50.0},
    {"CloseEmptiesTheRecord", {VTG + GGA, GGA}, {1002, 1001, 1001}, 0.0},
    {"WithoutGgaNothingCloses", {VTG + RMC + VTG}, {}, NO_FIX},

    {"ForeignTalkerWipes", {VTG + FOREIGN + GGA}, FIX, 0.0},
    {"UnknownTypeLeavesTheRecord", {VTG + Sentence("GPXYZ,1") + GGA}, FIX, 50.0},
    {"WrongChecksumLeavesTheRecord", {VTG + support::Spoilt(support::Vtg("70.0")) + GGA}, FIX, 50.0},
    {"BytesThatAreNoTextWipe", {VTG, NO_TEXT + GGA}, FIX, 0.0},

    {"SpoiltGgaClosesWithoutAFix", {VTG + support::Spoilt(GGA)}, NONE, NO_FIX},
    {"SpoiltGgaClosesAsEarlierOnesLeftIt", {RMC + support::Spoilt(GGA)}, FIX, 10.0 * 1.852},
    {"FifthCharacterAloneCloses", {RMC + Sentence("GPXGZ,1")}, FIX, 10.0 * 1.852},
    {"FourthCharacterDoesNot", {RMC + Sentence("GPGXA,1")}, {}, NO_FIX},

    {"EightBytesWaitForTheRest", {VTG + GGA.substr(0, 7), GGA.substr(7, 1), GGA.substr(8)}, FIX, 50.0},
    {"RestOfAShortOneEndsAtTheDollar", {"$GPXX,1", "\r\n" + VTG + GGA}, FIX, 50.0},
    {"NineBytesAreASentence", {VTG + GGA.substr(0, 9), GGA.substr(9)}, NONE, NO_FIX},
    {"CutSentenceLeavesTheRecordUntilItsRestWipes", {RMC + GGA.substr(0, 9)}, FIX, 10.0 * 1.852},
    {"RestOfNineEndsAtTheDollar", {VTG.substr(0, VTG.size() - 9), Tail(VTG, 9) + GGA}, FIX, 0.0},
    {"RestOfEightTakesTheNextSentenceAlong", {VTG.substr(0, VTG.size() - 8), Tail(VTG, 8) + GGA}, {}, NO_FIX},
    {"LoneCrLfSpoilsTheNextSentence", {NO_END, "\r\n" + VTG + GGA}, {1002, 1001, 1001}, 0.0},
    {"EightBytesBeforeADollarAreNotCutOff", {"noise..." + VTG + GGA}, FIX, 0.0},
    {"NineBytesBeforeADollarAreCutOff", {"noise...." + VTG + GGA}, FIX, 50.0},

    {"EightyTwoBytesBeforeADollarAreASentence", {Line(82) + VTG + GGA}, NONE_THEN_FIX, 50.0},
    {"EightyThreeAreDroppedAndTheRestSpoilsTheNext", {Line(83) + VTG + GGA}, FIX, 0.0},
    {"EightyThreeOverTwoChunksAreDroppedToo", {Line(8), Line(83).substr(8) + VTG + GGA}, FIX, 0.0},
    {"DroppedLineIsNotTakenAtItsEndEither", {Line(82 + 82 + 9) + VTG + GGA}, FIX, 50.0},
};

class SentenceAssembly : public support::FakeWorld, public testing::WithParamInterface<StreamCase>
{
protected:
    ReceiverFeed receiver;
};

TEST_P(SentenceAssembly, GivesTheEpochs)
{
    for (const std::string& chunk : GetParam().chunks) {
        receiver.Feed(chunk);
    }
    EXPECT_EQ(FakeEventHouse::ids, GetParam().events);
    const _GPS_Data current = receiver.Current();
    EXPECT_EQ(current.valid != 0 ? current.speed : NO_FIX, GetParam().speed);
}

INSTANTIATE_TEST_SUITE_P(Rules, SentenceAssembly, testing::ValuesIn(STREAM_CASES), support::RuleName());

using ListenerState = support::FakeWorld;

TEST_F(ListenerState, LogTakesEveryGpSentenceAsItCameAndNoOther)
{
    const support::TemporaryFolder folder;
    GPS::CGPSLogDeviceImpl writer;
    ReceiverFeed receiver(&writer);
    ASSERT_TRUE(writer.OpenLogFileForWrite(folder.Path("log").c_str()));
    const std::string unknown = Sentence("GPXYZ,1");
    receiver.Feed(RMC);
    receiver.listener.SetWriteLog(true);
    receiver.Feed(VTG + FOREIGN + unknown + Line(83) + "$GPRMC,1" + support::Spoilt(GGA));
    receiver.Feed(VTG.substr(0, 9));
    receiver.listener.SetWriteLog(false);
    receiver.Feed(VTG.substr(9) + RMC);
    writer.CloseLogFile();
    EXPECT_EQ(folder.Content("log"), VTG + unknown + support::Spoilt(GGA) + VTG.substr(0, 9) + "\r\n");
}

TEST_F(ListenerState, SatelliteGroupIsItsOwnAndGoesOnOverACloseAndAWipe)
{
    ReceiverFeed receiver;
    ReceiverFeed other;
    receiver.Feed(Sentence("GPGSV,2,1,02,01,40,083,46") + GGA);
    EXPECT_EQ(receiver.Current().satellite.listedCount, 0);
    other.Feed(Sentence("GPGSV,2,2,02,12,43,086,49") + GGA);
    EXPECT_EQ(other.Current().satellite.listedCount, 1);
    receiver.Feed(FOREIGN + Sentence("GPGSV,2,2,02,02,42,085,48") + GGA);
    EXPECT_EQ(receiver.Current().satellite.listedCount, 2);
}

} // namespace
