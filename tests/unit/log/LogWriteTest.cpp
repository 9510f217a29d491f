// The log file, byte for byte.
#include <string>

#include <gtest/gtest.h>

#include "GpsLib/log/CGPSLogDevice.h"
#include "GpsLib/log/CGPSLogDeviceImpl.h"
#include "tests/support/Row.h"
#include "tests/support/TemporaryFolder.h"

namespace
{

using GPS::CGPSLogDevice;
using GPS::CGPSLogDeviceImpl;

class LogWriter : public testing::Test
{
protected:
    bool Open(const char* name) { return log.OpenLogFileForWrite(folder.Path(name).c_str()); }

    support::TemporaryFolder folder;
    CGPSLogDeviceImpl log;
};

TEST_F(LogWriter, LinesAreWrittenWhole)
{
    const std::string longestInOne(253, 'x');
    const std::string longer(100000, 'y');
    const support::Row<std::string, std::string> ROWS[] = {
        {"CR LF stays as it is", "$GPZDA*48\r\n", "$GPZDA*48\r\n"},
        {"no line end gets one", "$GPZDA*48", "$GPZDA*48\r\n"},
        {"empty text is a line end", "", "\r\n"},
        {"one byte", "\n", "\n\r\n"},
        {"bare LF is no line end", "$GPZDA*48\n", "$GPZDA*48\n\r\n"},
        {"nor is CR before another byte", "$GPZDA*4\r8", "$GPZDA*4\r8\r\n"},
        {"line end alone", "\r\n", "\r\n"},
        {"the longest that fits the work buffer", longestInOne, longestInOne + "\r\n"},
        {"one longer", longestInOne + "z", longestInOne + "z\r\n"},
        {"any length", longer, longer + "\r\n"},
    };
    for (const auto& row : ROWS) {
        ASSERT_TRUE(Open(row.rule));
        EXPECT_TRUE(log.WriteLog("first\r\n"));
        EXPECT_TRUE(log.WriteLog(row.given.c_str()));
        EXPECT_TRUE(log.CloseLogFile());
        EXPECT_EQ(folder.Content(row.rule), "first\r\n" + row.expected) << row.rule;
    }
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
