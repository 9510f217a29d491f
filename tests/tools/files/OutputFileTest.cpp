#include "tools/files/OutputFile.h"

#include <csignal>
#include <filesystem>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "tests/support/TemporaryFolder.h"
#include "tools/errors/ToolError.h"
#include "tools/signals/SignalEnd.h"

namespace
{

namespace fs = std::filesystem;
using kestgps::OutputFile;

class OutputFileRule : public testing::Test
{
protected:
    /// Result: how many names the folder holds.
    std::ptrdiff_t Names() const { return std::distance(fs::directory_iterator(folder.Path("")), {}); }

    const support::TemporaryFolder folder;
    const std::string input = folder.File("input", "read");
    const std::string old = folder.File("old", "before");
};

TEST_F(OutputFileRule, AppearsWhenWholeUnderTheNameThatALinkTells)
{
    fs::create_symlink("old", folder.Path("link"));
    fs::create_symlink("new", folder.Path("dangling"));
    fs::permissions(old, fs::perms(0640));
    OutputFile replaced(folder.Path("link"), input);
    OutputFile made(folder.Path("dangling"), input);
    const std::string much(100000, 'x'); // more than is held back
    replaced.Write(much);
    made.Write("a");
    made.Write("b");
    EXPECT_EQ(folder.Content("old"), "before");
    EXPECT_FALSE(fs::exists(folder.Path("new")));
    replaced.Finish();
    made.Finish();
    EXPECT_TRUE(folder.Content("old") == much);
    EXPECT_EQ(fs::status(old).permissions(), fs::perms(0640));
    EXPECT_EQ(folder.Content("new"), "ab");
    EXPECT_EQ(fs::status(folder.Path("new")).permissions(), fs::status(input).permissions());
    EXPECT_TRUE(fs::is_symlink(folder.Path("link")) && fs::is_symlink(folder.Path("dangling")));
    EXPECT_EQ(Names(), 5);
}

TEST_F(OutputFileRule, NoSignalCallsItCutShortOnceItIsThere)
{
    EXPECT_EXIT((kestgps::EndOnStopRequests(), OutputFile(old, input).Finish(), raise(SIGTERM), _exit(0)),
                testing::ExitedWithCode(0), "");
}

TEST_F(OutputFileRule, LeavesAllAsItWasWithoutFinish)
{
    OutputFile(old, input).Write("cut");
    OutputFile(folder.Path("new"), input).Write("cut");
    EXPECT_EQ(folder.Content("old"), "before");
    EXPECT_EQ(Names(), 2);
}

TEST_F(OutputFileRule, IsNeverTheInputUnderAnyName)
{
    fs::create_hard_link(input, folder.Path("hard"));
    fs::create_symlink("hard", folder.Path("soft"));
    for (const char* const name : {"input", "hard", "soft"}) {
        EXPECT_THROW(OutputFile(folder.Path(name), input), kestgps::ToolError) << name;
    }
    OutputFile("/dev/null", "/dev/null").Finish(); // nothing is lost there
    EXPECT_EQ(folder.Content("input"), "read");
}

TEST_F(OutputFileRule, TellsWhyNoFileCanBeMadeBesideOneThatIsThere)
{
    EXPECT_THAT([this] { OutputFile("/proc/self/comm", input); },
                testing::ThrowsMessage<kestgps::ToolError>(testing::HasSubstr("beside it: No such file")));
}

TEST_F(OutputFileRule, WritesAnOpenDescriptorAndADeviceStraight)
{
    const kestgps::FileDescriptor log(open(old.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC));
    OutputFile straight("/dev/fd/" + std::to_string(log.Get()), input);
    straight.Write(" and behind");
    EXPECT_EQ(folder.Content("old"), "before and behind");
    EXPECT_THROW(OutputFile("/dev/full", input).Write("x"), kestgps::ToolError);
    EXPECT_THROW(OutputFile(folder.Path(""), input), kestgps::ToolError);
}

} // namespace
