// The log file, byte for byte.
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "GpsLib/log/CGPSLogDevice.h"
#include "GpsLib/log/CGPSLogDeviceImpl.h"
#include "tests/support/Row.h"
#include "tests/support/Sentence.h"
#include "tests/support/TemporaryFolder.h"

namespace
{

using GPS::CGPSLogDevice;
using GPS::CGPSLogDeviceImpl;

struct LineCase {
    const char* rule;
    std::string text;
    std::string written;
};

using support::operator<<;

const std::string LONGEST_IN_ONE(253, 'x');
const std::string LONGER(100000, 'y');

const LineCase LINES[] = {
    {"CrLfStaysAsItIs", "$GPZDA*48\r\n", "$GPZDA*48\r\n"},
    {"NoLineEndGetsOne", "$GPZDA*48", "$GPZDA*48\r\n"},
    {"EmptyTextIsALineEnd", "", "\r\n"},
    {"OneByte", "\n", "\n\r\n"},
    {"BareLfIsNoLineEnd", "$GPZDA*48\n", "$GPZDA*48\n\r\n"},
    {"LfCrIsNoLineEnd", "$GPZDA*48\n\r", "$GPZDA*48\n\r\r\n"},
    {"LineEndAlone", "\r\n", "\r\n"},
    {"LongestThatFitsTheWorkBuffer", LONGEST_IN_ONE, LONGEST_IN_ONE + "\r\n"},
    {"OneLongerIsWhole", LONGEST_IN_ONE + "z", LONGEST_IN_ONE + "z\r\n"},
    {"AnyLengthIsWhole", LONGER, LONGER + "\r\n"},
};

class LogLine : public testing::TestWithParam<LineCase>
{
};

TEST_P(LogLine, IsWrittenWhole)
{
    const support::TemporaryFolder folder;
    {
        CGPSLogDevice device;
        ASSERT_TRUE(device.OpenLogFileForWrite(folder.Path("log").c_str()));
        EXPECT_TRUE(device.WriteLog("first\r\n"));
        EXPECT_TRUE(device.WriteLog(GetParam().text.c_str()));
    }
    EXPECT_EQ(folder.Content("log"), "first\r\n" + GetParam().written);
}

INSTANTIATE_TEST_SUITE_P(Rules, LogLine, testing::ValuesIn(LINES), support::RuleName());

class LogWriter : public testing::Test
{
protected:
    bool Open(const char* name) { return log.OpenLogFileForWrite(folder.Path(name).c_str()); }

    support::TemporaryFolder folder;
    CGPSLogDeviceImpl log;
};

TEST_F(LogWriter, AppendsToWhatIsThere)
{
    folder.File("log", "before\r\n");
    ASSERT_TRUE(Open("log"));
    log.WriteLog("behind");
    EXPECT_TRUE(log.CloseLogFile());
    EXPECT_EQ(folder.Content("log"), "before\r\nbehind\r\n");
}

TEST_F(LogWriter, OpenLogIgnoresAnotherPath)
{
    ASSERT_TRUE(Open("one"));
    EXPECT_TRUE(Open("two"));
    EXPECT_TRUE(log.OpenLogFileForWrite(nullptr)) << "the open log goes on, whatever the path";
    log.WriteLog("text");
    log.CloseLogFile();
    EXPECT_EQ(folder.Content("one"), "text\r\n");
    EXPECT_FALSE(std::filesystem::exists(folder.Path("two")));
}

TEST_F(LogWriter, WithoutAFileNothingIsTaken)
{
    EXPECT_FALSE(log.WriteLog("text"));
    EXPECT_FALSE(log.CloseLogFile());
    EXPECT_FALSE(log.OpenLogFileForWrite(nullptr));
    EXPECT_FALSE(Open("no/such/folder/log"));
    EXPECT_FALSE(log.WriteLog("text"));
    log.SetLogType(static_cast<LOGTYPE>(1));
    EXPECT_FALSE(log.WriteLog("text")) << "the missing file counts before the type";
}

TEST_F(LogWriter, OtherLogTypesWriteNothing)
{
    ASSERT_TRUE(Open("log"));
    log.SetLogType(static_cast<LOGTYPE>(-7));
    EXPECT_TRUE(log.WriteLog("unseen"));
    log.SetLogType(LOGTYPE_NMEA);
    EXPECT_TRUE(log.WriteLog("seen"));
    EXPECT_FALSE(log.WriteLog(nullptr));
    log.CloseLogFile();
    EXPECT_EQ(folder.Content("log"), "seen\r\n");
}

TEST_F(LogWriter, ClosesOnceAndOpensAgain)
{
    ASSERT_TRUE(Open("log"));
    EXPECT_TRUE(log.CloseLogFile());
    EXPECT_FALSE(log.CloseLogFile());
    ASSERT_TRUE(Open("log"));
    log.WriteLog("again");
    log.CloseLogFile();
    EXPECT_EQ(folder.Content("log"), "again\r\n");
}

TEST_F(LogWriter, FullDiskGoesUnnoticed)
{
    ASSERT_TRUE(log.OpenLogFileForWrite("/dev/full"));
    for (int i = 0; i < 2000; ++i) { // far more than the stream holds
        ASSERT_TRUE(log.WriteLog("$GPGGA,101500,3114.250,N,12129.500,E,1,08,0.9,12.5,M,,M,,*5A"));
    }
    EXPECT_TRUE(log.CloseLogFile());
}

TEST(LogCopies, LastOneClosesTheFile)
{
    const support::TemporaryFolder folder;
    {
        CGPSLogDevice last;
        {
            CGPSLogDevice first;
            ASSERT_TRUE(first.OpenLogFileForWrite(folder.Path("log").c_str()));
            last = first;
            const CGPSLogDevice third(first);
        }
        EXPECT_TRUE(last.WriteLog("still open"));
        last = *&last;
        EXPECT_TRUE(last.WriteLog("after itself"));
    }
    EXPECT_EQ(folder.Content("log"), "still open\r\nafter itself\r\n");
}

} // namespace
