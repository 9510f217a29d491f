// A GGA where the receiver sends none.
#include "tests/layers/adapter/Adapted.h"
#include "tests/support/Row.h"

namespace
{

using support::Adapted;
using support::Sentence;
using support::Sentences;

std::string Clock(int second)
{
    return std::to_string(101500 + second / 60 * 100 + second % 60) + ".00";
}

std::string Gns(int second, const std::string& modes = "AN", const std::string& talker = "GN")
{
    return Sentence(talker + "GNS," + Clock(second) + ",3114.25,N,12129.5,E," + modes +
                    ",08,0.9,12.5,7.9,1.5,0120,V");
}

std::string GgaOfGns(int second, const std::string& quality = "1")
{
    return Sentence("GPGGA," + Clock(second) + ",3114.25,N,12129.5,E," + quality +
                    ",08,0.9,12.5,M,7.9,M,1.5,0120");
}

std::string Rmc(int second, const std::string& talker = "GP", const std::string& status = "A")
{
    return Sentence(talker + "RMC," + Clock(second) + "," + status +
                    ",3114.25,N,12129.5,E,22.4,84.4,230306,,,A");
}

std::string GgaOfRmc(int second, const std::string& satellites = "00", const std::string& quality = "1")
{
    return Sentence("GPGGA," + Clock(second) + ",3114.25,N,12129.5,E," + quality + "," + satellites +
                    ",,0.0,M,,M,,");
}

template <class SENTENCE>
std::string Seconds(int first, int last, SENTENCE sentence)
{
    std::string stream;
    for (int second = first; second <= last; ++second) {
        stream += sentence(second);
    }
    return stream;
}

const std::string GSA = Sentence("GPGSA,A,3,03,07,12,,,,,,,,,,2.1,1.2,1.7");
const std::string OWN_GGA = Sentence("GPGGA,101515.00,3114.25,N,12129.5,E,1,08,0.9,30.5,M,,M,,");

TEST(MissingGga, ComesOfGnsBehindTenTimes)
{
    const std::string gns = Seconds(1, 12, [](int second) { return Gns(second); });
    const std::string waiting = Seconds(1, 10, [](int second) { return Gns(second, "AN", "GP"); });
    EXPECT_EQ(Adapted(gns), waiting + GgaOfGns(11) + GgaOfGns(12));
    EXPECT_EQ(Adapted(gns + Gns(12, "AN", "GL")), waiting + GgaOfGns(11) + GgaOfGns(12)) << "one a fix";
}

TEST(MissingGga, HasTheQualityOfTheBestMode)
{
    const support::Row<const char*, const char*> modes[] = {{"real time before float", "FR", "4"},
                                                            {"float before differential", "DF", "2"},
                                                            {"differential", "PD", "2"},
                                                            {"precise before autonomous", "AP", "1"},
                                                            {"autonomous", "EA", "1"},
                                                            {"estimated", "ME", "6"},
                                                            {"manual", "SM", "7"},
                                                            {"simulated", "NS", "8"},
                                                            {"none", "NN", "0"}};
    const std::string before = Seconds(1, 10, [](int second) { return Gns(second); });
    for (const auto& mode : modes) {
        const std::string adapted = Adapted(before + Gns(11, mode.given));
        EXPECT_EQ(adapted.substr(before.size()), GgaOfGns(11, mode.expected)) << mode.rule;
    }
}

TEST(MissingGga, ComesOfRmcBehindTenTimesWithTheSatellitesOfItsCycle)
{
    const auto cycle = [](int second) { return Rmc(second) + GSA; };
    EXPECT_EQ(Adapted(Seconds(1, 11, cycle) + Rmc(12, "GN", "V") + Rmc(12) + Rmc(13)),
              Seconds(1, 10, cycle) + Rmc(11) + GgaOfRmc(11, "03") + GSA + Rmc(12, "GP", "V") +
                  GgaOfRmc(12, "03", "0") + Rmc(12) + Rmc(13) + GgaOfRmc(13));
}

TEST(MissingGga, GnsIsBetterThanRmc)
{
    const auto cycle = [](int second) { return Rmc(second) + Gns(second, "AN", "GP"); };
    EXPECT_EQ(Adapted(Seconds(1, 11, cycle)), Seconds(1, 10, cycle) + Rmc(11) + GgaOfGns(11));
    const std::string late = Seconds(1, 11, [](int second) { return Rmc(second); });
    EXPECT_EQ(Adapted(late + Gns(11) + cycle(12)), late + GgaOfRmc(11) + Rmc(12) + GgaOfGns(12));
}

TEST(MissingGga, NeverComesWhereThereIsOne)
{
    const std::string stream = OWN_GGA + Seconds(16, 115, [](int second) { return Rmc(second); });
    EXPECT_EQ(Adapted(stream + OWN_GGA), stream + OWN_GGA) << "seldom is often enough";
    EXPECT_EQ(Adapted(OWN_GGA + Gns(16) + Gns(17, "AN", "GP")), OWN_GGA + Gns(17, "AN", "GP"));
    const std::string other = stream + Seconds(116, 126, [](int second) { return Rmc(second); });
    EXPECT_EQ(Adapted(other), other + GgaOfRmc(126)) << "another receiver by now";
    const std::string ofGns = OWN_GGA + Seconds(16, 125, [](int second) { return Gns(second, "AN", "GP"); });
    EXPECT_EQ(Adapted(ofGns + Gns(126)), ofGns + GgaOfGns(126)) << "and one of GNS alone";
}

TEST(MissingGga, EndsWithTheReceiversOwn)
{
    const std::string stream = Seconds(5, 15, [](int second) { return Rmc(second); });
    EXPECT_EQ(Adapted(stream + OWN_GGA + Rmc(16)), stream + GgaOfRmc(15) + Rmc(16))
        << "the fix has closed its epoch";
    EXPECT_EQ(Adapted(stream + Rmc(16) + OWN_GGA + Rmc(17)),
              stream + GgaOfRmc(15) + Rmc(16) + GgaOfRmc(16) + OWN_GGA + Rmc(17));
}

TEST(MissingGga, IsNothingWithoutATime)
{
    const std::string stream = Seconds(1, 20, [](int) { return Sentence("GPRMC,,V,,,,,,,,,,N"); });
    EXPECT_EQ(Adapted(stream), stream);
}

TEST(Reset, ForgetsWhatTheReceiverSent)
{
    adapter::CSentenceAdapter adapter;
    support::KeptSentences kept;
    const std::string stream = Seconds(1, 11, [](int second) { return Gns(second); }) + "$GPGGA,1015";
    adapter.Take(stream.data(), stream.size(), kept);
    EXPECT_EQ(adapter.Counts().madeFromGns, 1U);
    adapter.Reset();
    EXPECT_EQ(adapter.Counts().madeFromGns, 0U);
    kept.text.clear();
    adapter.Take(GSA.data(), GSA.size(), kept);
    EXPECT_EQ(kept.text, GSA) << "no torn sentence before it";
}

} // namespace
