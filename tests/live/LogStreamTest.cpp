// A log that closes on one thread while another writes.
#include <algorithm>
#include <atomic>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "GpsLib/log/CGPSLogDeviceImpl.h"
#include "tests/support/TemporaryFolder.h"

namespace
{

const std::string LINE = "$GPZDA*48\r\n";

TEST(LogStream, ClosesBetweenTwoLines)
{
    const support::TemporaryFolder folder;
    const std::string path = folder.Path("log");
    GPS::CGPSLogDeviceImpl log;
    std::atomic<bool> going{true};
    std::atomic<std::ptrdiff_t> written{0};
    std::thread writer([&] {
        while (going) {
            written += log.WriteLog(LINE.c_str()) ? 1 : 0;
        }
    });
    for (int i = 0; i < 300 || written == 0; ++i) {
        ASSERT_TRUE(log.OpenLogFileForWrite(path.c_str()));
        std::this_thread::yield();
        ASSERT_TRUE(log.CloseLogFile());
    }
    going = false;
    writer.join();
    const std::string content = folder.Content("log");
    EXPECT_EQ(std::count(content.begin(), content.end(), '\n'), written) << "each in the file, and none lost";
    EXPECT_EQ(content.size(), static_cast<std::size_t>(written) * LINE.size()) << "and whole";
}

} // namespace
