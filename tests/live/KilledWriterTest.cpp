// What is left of a log when its writer is killed.
#include <csignal>
#include <string>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "GpsLib/log/CGPSLogDevice.h"
#include "tests/support/Sentence.h"
#include "tests/support/TemporaryFolder.h"

namespace
{

constexpr std::size_t STREAM_BUFFER = 4096; // [byte] what stdio holds back of a file

/// Lines of one length, each with its number.
std::string Line(std::size_t number)
{
    const std::string altitude = std::to_string(100000 + number);
    return support::Sentence("GPGGA,101500,3114.250,N,12129.500,E,1,08,0.9," + altitude + ",M,,M,,");
}

void WriteAndDie(const std::string& path, std::size_t lines)
{
    GPS::CGPSLogDevice log;
    log.OpenLogFileForWrite(path.c_str());
    for (std::size_t number = 0; number < lines; ++number) {
        log.WriteLog(Line(number).c_str());
    }
    kill(getpid(), SIGKILL);
}

TEST(KilledWriter, LeavesALogThatReplays)
{
    std::string whole;
    for (std::size_t lines = 0; lines < 200; ++lines) {
        const support::TemporaryFolder folder;
        std::string path = folder.Path("log");
        const pid_t writer = fork();
        if (writer == 0) {
            WriteAndDie(path, lines);
        }
        waitpid(writer, nullptr, 0);
        const std::string left = folder.Content("log");
        EXPECT_EQ(left, whole.substr(0, left.size()));
        EXPECT_LE(whole.size(), left.size() + STREAM_BUFFER) << "more is gone than the stream held";

        GPS::CGPSLogDevice log;
        std::size_t replayed = 0;
        ASSERT_TRUE(log.OpenLogFileForRead(path.data()));
        for (_GPS_Data fix; log.GetGPSData(fix); ++replayed) {
            EXPECT_EQ(fix.altitude, 100000.0 + static_cast<double>(replayed));
        }
        EXPECT_GE(replayed, left.size() / Line(0).size()) << "every whole line";
        whole += Line(lines);
    }
}

} // namespace
