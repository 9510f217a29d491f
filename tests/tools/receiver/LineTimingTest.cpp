// What is sent together, and when it is due. No clock is read here: the times are the rules' own.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/Row.h"
#include "tools/receiver/Bursts.h"
#include "tools/receiver/LinePace.h"

namespace
{

struct BurstCase {
    const char* rule;
    std::vector<std::string> bursts; // as they should come out of the text that they make up
};

const BurstCase BURSTS[] = {
    {"EmptyTextHasNone", {}},
    {"TimeOfItsLikeChanged", {"$GPGGA,1,x\r\n$GPRMC,1\r\n", "$GPGGA,2,x\r\n$GPRMC,2\r\n"}},
    {"SameTimeAgainIsTheSameBurst", {"$GPGGA,1\n$GPGGA,1\n"}},
    {"UntimedLinesBelongWhereTheyStand", {"$GPGSV,1\n$GPZDA,1\nx\n\n$GPVTG,2\n", "$GPZDA,2\n$GPGSV,3\n"}},
    {"TwoClocksInOneBurst", {"$GPZDA,9\n$GPGGA,8\n", "$GPZDA,10\n$GPGGA,9\n"}},
    {"TimeOfGllIsItsFifthField", {"$GPGLL,1,N,2,E,7,A\n", "$GPGLL,1,N,2,E,8,A\n"}},
    {"StandingTimeOfAnotherTalker", {"$APGLL,1,N,2,E,3,A\n$GPGGA,5\n$APGLL,1,N,2,E,3,A\n", "$GPGGA,6\n"}},
    {"WithoutTimeEachOfItsLikeBeginsOne", {"$GPRMC,,V\n$GPGGA,,\n", "$GPRMC,,V\n$GPGGA,,\n"}},
    {"CutTailsAreKept", {"A\n$GPGG"}},
    {"CutTailOfATimedLine", {"$GPGGA,1\n", "$GPGGA,2"}},
};

class SplitBurstsRule : public testing::TestWithParam<BurstCase>
{
};

TEST_P(SplitBurstsRule, Holds)
{
    std::string text;
    for (const std::string& burst : GetParam().bursts) {
        text += burst;
    }
    const auto split = kestgps::SplitBursts(text);
    EXPECT_EQ(std::vector<std::string>(split.begin(), split.end()), GetParam().bursts);
}

INSTANTIATE_TEST_SUITE_P(Rules, SplitBurstsRule, testing::ValuesIn(BURSTS), support::RuleName());

kestgps::LinePace At(double baudRate, double factor)
{
    return {{baudRate, 1, factor}, {}};
}

long long Ms(kestgps::Clock::time_point time)
{
    return std::chrono::round<std::chrono::milliseconds>(time.time_since_epoch()).count();
}

TEST(Pace, AByteTakesTenBitsAndTooSlowALineDelaysTheNextBurst)
{
    auto pace = At(4800, 1);
    EXPECT_EQ(Ms(pace.BeginBurst()), 0);
    EXPECT_EQ(Ms(pace.Send(48)), 100);
    EXPECT_EQ(Ms(pace.Send(192)), 500);
    EXPECT_EQ(Ms(pace.BeginBurst()), 1000); // the line was free before
    EXPECT_EQ(Ms(pace.Send(960)), 3000);
    EXPECT_EQ(Ms(pace.BeginBurst()), 3000);
    pace.Send(48);
    EXPECT_EQ(Ms(pace.BeginBurst()), 4000);
}

TEST(Pace, TheFactorShortensAll)
{
    auto pace = At(4800, 10);
    pace.BeginBurst();
    EXPECT_EQ(Ms(pace.Send(240)), 50);
    EXPECT_EQ(Ms(pace.BeginBurst()), 100);
}

TEST(Pace, ALongWaitForRoomMovesAllAndAShortOneIsCaughtUp)
{
    auto pace = At(4800, 1);
    pace.BeginBurst();
    pace.HandedOver(pace.Send(48) + std::chrono::milliseconds(50));
    EXPECT_EQ(Ms(pace.Send(48)), 200);
    pace.HandedOver(kestgps::Clock::time_point(std::chrono::milliseconds(5200)));
    EXPECT_EQ(Ms(pace.Send(48)), 5300);
    EXPECT_EQ(Ms(pace.BeginBurst()), 6000);
}

TEST(Pace, ASliceIsAtLeastAByteAndAtMostHalfAKilobyte)
{
    EXPECT_EQ(At(50, 0.01).SliceLength(), 1U);
    EXPECT_EQ(At(9600, 1).SliceLength(), 9U);
    EXPECT_EQ(At(4000000, 1000000).SliceLength(), 512U);
}

} // namespace
