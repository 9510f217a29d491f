// The built program with a receiver of today, and with its log.
#include <csignal>

#include <gtest/gtest.h>

#include "tests/support/Sentence.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/tools/commands/Program.h"

namespace
{

class ReceiverOfToday : public testing::Test
{
protected:
    static constexpr std::size_t EPOCHS = 1500; // far more bytes than a pipe holds

    static std::string Drive()
    {
        std::string drive = "\xB5\x62\x01$PUBX,00*33\r\n";
        for (std::size_t i = 0; i < EPOCHS; ++i) {
            const std::string time = std::to_string(100000 + i / 60 * 100 + i % 60);
            drive += support::Sentence("GNGGA," + time + ",3114.0000,N,12129.0000,E,1,24,0.9,12.5,M,,M,,") +
                     support::Sentence("GNGSA,A,3,03,07,,,,,,,,,,,2.1,1.2,1.7,1");
        }
        return drive;
    }

    const support::TemporaryFolder folder;
    const std::string log = folder.File("log", Drive());
    const std::string errors = folder.Path("errors");
};

TEST_F(ReceiverOfToday, ReplayPrintsAllEpochsAndTellsWhatItDid)
{
    Program replay("replay " + log + " 2>" + errors);
    EXPECT_EQ(replay.Lines().size(), EPOCHS);
    EXPECT_EQ(replay.Status(), 0);
    const std::string count = std::to_string(EPOCHS);
    EXPECT_EQ(folder.Content("errors"), "kestgps: receiver: several systems, talker GN, system numbers\n"
                                        "kestgps: sentences: " +
                                            std::to_string(2 * EPOCHS + 1) + " came, " +
                                            std::to_string(2 * EPOCHS) + " rewritten (talker " +
                                            std::to_string(2 * EPOCHS) + ", system " + count +
                                            "), 0 GGA made, 1 left out (proprietary 1)\n");
}

TEST_F(ReceiverOfToday, ReplayLeavesTheSentencesAloneWhereItIsAskedTo)
{
    Program replay("replay --as-is " + log + " 2>&1");
    EXPECT_NE(replay.LastLine().find("no sentence of talker GP"), std::string::npos);
    EXPECT_EQ(replay.Status(), 1);
}

TEST_F(ReceiverOfToday, ReplayEndsWithItsReader)
{
    Program replay("replay " + log + " 2>/dev/null | head -n 2");
    EXPECT_EQ(replay.Lines().size(), 2U);
    EXPECT_EQ(replay.Status(), 0);
}

TEST_F(ReceiverOfToday, LiveTellsWhatItIsAndWhatWasRewritten)
{
    Program receiver("emulate " + log + " --factor 50 2>/dev/null");
    std::string device = receiver.Line();
    device.pop_back(); // the line end
    Program live("live --device " + device + " --epochs 4 2>" + errors);
    const std::vector<std::string> lines = live.Lines();
    EXPECT_EQ(live.Status(), 0);
    ASSERT_EQ(lines.size(), 7U);
    EXPECT_NE(lines[4].find(" rewritten (talker "), std::string::npos) << lines[4];
    EXPECT_EQ(folder.Content("errors"), "kestgps: receiver: several systems, talker GN, system numbers\n");

    Program alone("live --as-is --seconds 1 --device " + device + " 2>&1");
    EXPECT_NE(alone.LastLine().find("whether the receiver sends GGA as talker GP"), std::string::npos);
    EXPECT_EQ(alone.Status(), 1);
    kill(receiver.Id(), SIGTERM);
}

} // namespace
