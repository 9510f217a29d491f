// What is left of a log when its writer is killed.
#include <atomic>
#include <csignal>
#include <new>
#include <random>
#include <string>

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include "GpsLib/log/CGPSLogDevice.h"
#include "tests/support/Sentence.h"
#include "tests/support/TemporaryFolder.h"

namespace
{

constexpr std::size_t STREAM_BUFFER = 4096; // [byte] what stdio holds back of a file

/// Lines of one length, each with its number, so that the whole text is known from its length.
std::string Line(std::size_t number)
{
    const std::string altitude = std::to_string(100000 + number);
    return support::Sentence("GPGGA,101500,3114.250,N,12129.500,E,1,08,0.9," + altitude + ",M,,M,,");
}

/// written: bytes handed over so far.
[[noreturn]] void WriteUntilKilled(const std::string& path, std::atomic<std::size_t>& written)
{
    GPS::CGPSLogDevice log;
    log.OpenLogFileForWrite(path.c_str());
    for (std::size_t number = 0;; ++number) {
        const std::string line = Line(number);
        log.WriteLog(line.c_str());
        written += line.size();
        usleep(20);
    }
}

/// Result: a count that the processes forked later see too.
std::atomic<std::size_t>& SharedCount()
{
    void* const place =
        mmap(nullptr, sizeof(std::size_t), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    return *new (place) std::atomic<std::size_t>(0);
}

TEST(KilledWriter, LeavesALogThatReplays)
{
    std::atomic<std::size_t>& written = SharedCount();
    std::minstd_rand random(1); // NOLINT(cert-msc51-cpp,cert-msc32-c): the same moments each time
    const std::size_t lineLength = Line(0).size();
    std::size_t records = 0;
    for (int round = 0; round < 100; ++round) {
        const support::TemporaryFolder folder;
        std::string path = folder.Path("log");
        written = 0;
        const pid_t writer = fork();
        if (writer == 0) {
            WriteUntilKilled(path, written);
        }
        usleep(static_cast<useconds_t>(random() % 30000));
        kill(writer, SIGKILL);
        waitpid(writer, nullptr, 0);
        const std::string left = folder.Content("log");
        EXPECT_LE(written, left.size() + STREAM_BUFFER + lineLength) << "more is gone than the stream held";
        std::string whole;
        while (whole.size() < left.size()) {
            whole += Line(whole.size() / lineLength);
        }
        EXPECT_EQ(left, whole.substr(0, left.size()));

        GPS::CGPSLogDevice log;
        std::size_t replayed = 0;
        log.OpenLogFileForRead(path.data()); // there may be none yet
        for (_GPS_Data fix; log.GetGPSData(fix); ++replayed) {
            EXPECT_EQ(fix.altitude, 100000.0 + static_cast<double>(replayed));
        }
        EXPECT_GE(replayed, left.size() / lineLength) << "every whole line";
        records += replayed;
    }
    EXPECT_GT(records, 0U);
}

} // namespace
