#include "tools/output/ProgressLine.h"

#include <cstdio>
#include <filesystem>
#include <system_error>

#include <unistd.h>

namespace kestgps
{

namespace
{

constexpr std::uintmax_t LONG_FILE = 10'000'000; // [byte] a second of work or so
constexpr std::chrono::milliseconds BETWEEN_LINES(500);

bool IsLong(const std::string& file)
{
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    return !error && size >= LONG_FILE;
}

} // namespace

ProgressLine::ProgressLine(const std::string& file)
    : wanted(isatty(STDERR_FILENO) == 1 && IsLong(file)), due(Clock::now() + BETWEEN_LINES)
{
}

ProgressLine::~ProgressLine()
{
    if (shown) {
        static_cast<void>(std::fputs("\x1b[K", stderr));
    }
}

void ProgressLine::Show(std::uint64_t epochs)
{
    if (!wanted || Clock::now() < due) {
        return;
    }
    static_cast<void>(std::fprintf(stderr, "%llu epochs\r", static_cast<unsigned long long>(epochs)));
    shown = true;
    due = Clock::now() + BETWEEN_LINES;
}

} // namespace kestgps
