// The whole loop: a drive is simulated, written, played by a receiver, received, recorded and replayed.
#include <cmath>

#include <gtest/gtest.h>

#include "tests/support/Sentence.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/tools/commands/Program.h"

namespace
{

/// The position of a line of output.
tagLonLat PositionOf(const std::string& line)
{
    char* end = nullptr;
    const double lat = std::strtod(line.c_str() + line.find("fix ") + 4, &end);
    return {std::strtod(end, nullptr), lat};
}

/// What a receiver says before it has a fix, for as long as another program takes to open its port.
std::string LeadIn()
{
    std::string text;
    for (int second = 10; second < 60; ++second) {
        text += support::Sentence("GPZDA,2359" + std::to_string(second) + ".00,31,12,2025,00,00");
    }
    return text;
}

std::vector<std::string> Output(const std::string& arguments)
{
    Program program(arguments);
    std::vector<std::string> lines = program.Lines();
    EXPECT_EQ(program.Status(), 0) << arguments;
    return lines;
}

TEST(WholeLoop, PositionsAgreeAtEveryStage)
{
    const support::TemporaryFolder folder;
    const std::string route = folder.File("route.csv", "lon,lat\n-0.004,-33\n0.006,-33.0\n0.006,-32.99\n");
    const std::string simulate = "simulate " + route + " --speed 90 --step 4";
    const std::vector<std::string> driven = Output(simulate);
    ASSERT_GT(driven.size(), 15U);
    EXPECT_TRUE(Output(simulate + " --nmea " + folder.Path("drive.nmea")).empty());

    const std::string played = folder.File("played.nmea", LeadIn() + folder.Content("drive.nmea"));
    const std::string log = folder.Path("recorded.nmea");
    Program receiver("emulate " + played + " --factor 25 2>/dev/null");
    std::string device = receiver.Line();
    device.pop_back(); // the line end
    const std::vector<std::string> live =
        Output("live --device " + device + " --log " + log + " --raw " + folder.Path("raw") + " --epochs " +
               std::to_string(driven.size()));
    const std::vector<std::string> replayed = Output("replay " + log);

    constexpr double RESOLUTION =
        0.0001 / 60.0 / 2.0 + 1e-7; // [deg] half a step of the sentences, and of the lines
    ASSERT_EQ(replayed.size(), driven.size());
    ASSERT_GE(live.size(), driven.size()); // the summary follows
    for (std::size_t i = 0; i < driven.size(); ++i) {
        const tagLonLat ahead = PositionOf(driven[i]);
        const tagLonLat behind = PositionOf(live[i]);
        EXPECT_LE(std::fabs(ahead.lon - behind.lon), RESOLUTION) << driven[i] << live[i];
        EXPECT_LE(std::fabs(ahead.lat - behind.lat), RESOLUTION) << driven[i] << live[i];
        EXPECT_EQ(live[i], replayed[i]);
    }
    const std::string raw = folder.Content("raw");
    EXPECT_NE(folder.Content("played.nmea").find(raw), std::string::npos) << "not as it came";
    EXPECT_NE(raw.find(folder.Content("recorded.nmea")), std::string::npos) << "bytes are missing";
}

} // namespace
