// The built program on the log of a receiver of today.
#include <gtest/gtest.h>

#include "tests/support/Sentence.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/tools/commands/Program.h"

namespace
{

class AdaptedReplay : public testing::Test
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

TEST_F(AdaptedReplay, PrintsAllEpochsAndTellsWhatItDid)
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

TEST_F(AdaptedReplay, LeavesTheSentencesAloneWhereItIsAskedTo)
{
    Program replay("replay --as-is " + log + " 2>&1");
    EXPECT_NE(replay.LastLine().find("no sentence of talker GP"), std::string::npos);
    EXPECT_EQ(replay.Status(), 1);
}

TEST_F(AdaptedReplay, EndsWithItsReader)
{
    Program replay("replay " + log + " 2>/dev/null | head -n 2");
    EXPECT_EQ(replay.Lines().size(), 2U);
    EXPECT_EQ(replay.Status(), 0);
}

} // namespace
