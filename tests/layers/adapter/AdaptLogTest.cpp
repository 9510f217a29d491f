// An adapted copy of a log: whole under its name, or not there.
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>

#include "layers/adapter/AdaptDescriptor.h"
#include "layers/adapter/AdaptLog.h"
#include "tests/layers/adapter/Adapted.h"
#include "tests/support/TemporaryFolder.h"

namespace
{

using adapter::AdaptLog;

class LogCopy : public testing::Test
{
protected:
    std::size_t FilesInFolder() const
    {
        const std::filesystem::directory_iterator files(std::filesystem::path(log).parent_path());
        return static_cast<std::size_t>(std::distance(begin(files), end(files)));
    }

    void ExpectFailure(const std::string& from, const std::string& to, adapter::ADAPTLOGRESULT result,
                       int error)
    {
        const std::size_t before = FilesInFolder();
        const adapter::AdaptedLog adapted = AdaptLog(from.c_str(), to.c_str());
        EXPECT_EQ(adapted.result, result) << to;
        EXPECT_EQ(adapted.error, error) << to;
        EXPECT_EQ(FilesInFolder(), before) << "nothing is left behind of " << to;
    }

    const support::TemporaryFolder folder;
    const std::string stream = support::Sentences({"GNVTG,84.4,T,,M,22.4,N,41.5,K", "APVTG,84.4"});
    const std::string log = folder.File("log", stream);
    const std::string adapted = support::Sentences({"GPVTG,84.4,T,,M,22.4,N,41.5,K"});
};

TEST_F(LogCopy, TakesThePlaceOfAFileAndItsMode)
{
    namespace fs = std::filesystem;
    const std::string old = folder.File("old", "old");
    fs::permissions(old, fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink(old, folder.Path("link"));
    const adapter::AdaptedLog result = AdaptLog(log.c_str(), folder.Path("link").c_str());
    EXPECT_EQ(result.result, adapter::ADAPTLOG_DONE);
    EXPECT_EQ(result.counts.rewritten, 1U);
    EXPECT_EQ(folder.Content("old"), adapted);
    EXPECT_TRUE(fs::is_symlink(folder.Path("link")));
    EXPECT_EQ(fs::status(old).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(LogCopy, IsAsLongAsItNeedsToBe)
{
    std::string much;
    std::string muchAdapted;
    for (int i = 0; i < 2000; ++i) { // many of the blocks that are read and written
        much += stream;
        muchAdapted += adapted;
    }
    const std::string longLog = folder.File("long", much + "$GNVTG,84.4*7"); // torn
    EXPECT_EQ(AdaptLog(longLog.c_str(), folder.Path("new").c_str()).error, 0);
    EXPECT_EQ(folder.Content("new"), muchAdapted);
    EXPECT_EQ(FilesInFolder(), 3U);
}

TEST_F(LogCopy, NeverGoesOverItsLog)
{
    std::filesystem::create_hard_link(log, folder.Path("other"));
    ExpectFailure(log, log, adapter::ADAPTLOG_SAME_FILE, EEXIST);
    ExpectFailure(log, folder.Path("other"), adapter::ADAPTLOG_SAME_FILE, EEXIST);
    EXPECT_EQ(folder.Content("log"), stream);
}

TEST_F(LogCopy, SaysWhatIsInTheWay)
{
    std::filesystem::create_directory(folder.Path("folder"));
    ExpectFailure(folder.Path("none"), folder.Path("new"), adapter::ADAPTLOG_NOT_READ, ENOENT);
    ExpectFailure(folder.Path("folder"), folder.Path("new"), adapter::ADAPTLOG_NOT_READ, EISDIR);
    ExpectFailure(log, folder.Path("folder"), adapter::ADAPTLOG_NOT_WRITTEN, EISDIR);
    ExpectFailure(log, folder.Path("none/new"), adapter::ADAPTLOG_NOT_WRITTEN, ENOENT);
    ExpectFailure(log, "", adapter::ADAPTLOG_NOT_WRITTEN, ENOENT);
    ExpectFailure(log, "/dev/null", adapter::ADAPTLOG_NOT_WRITTEN, EEXIST);
    ExpectFailure(log, std::string(5000, 'x'), adapter::ADAPTLOG_NOT_WRITTEN, ENAMETOOLONG);
}

TEST_F(LogCopy, SaysThatTheDiskIsFull)
{
    adapter::CSentenceAdapter adapter;
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> from(std::fopen(log.c_str(), "rb"), std::fclose);
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> full(std::fopen("/dev/full", "wb"), std::fclose);
    ASSERT_TRUE(from != nullptr && full != nullptr);
    EXPECT_EQ(adapter::AdaptDescriptor(fileno(from.get()), fileno(full.get()), adapter),
              adapter::ADAPTLOG_NOT_WRITTEN);
    EXPECT_EQ(errno, ENOSPC);
}

} // namespace
