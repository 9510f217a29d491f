// The writing side. A log is the raw sentences, each ended by CR LF, with no header; it is appended to.
#include "GpsLib/log/CGPSLogDeviceImpl.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "GpsLib/comm/LockGuard.h"

namespace
{

constexpr char LINE_END[] = {'\r', '\n'};
constexpr std::size_t LINE_END_LENGTH = sizeof LINE_END;
constexpr std::size_t LINE_ROOM = 255; // a text and the line end that it gets go out in one write up to here

bool HasLineEnd(const char* text, std::size_t length) noexcept
{
    return length >= LINE_END_LENGTH && text[length - 2] == '\r' && text[length - 1] == '\n';
}

// Results of writes are not looked at: a full disk must not disturb the receiver.
void Write(std::FILE* file, const char* bytes, std::size_t count) noexcept
{
    static_cast<void>(std::fwrite(bytes, 1, count, file));
}

} // namespace

namespace GPS
{

using KestThread::LockGuard;

bool CGPSLogDeviceImpl::OpenLogFileForWrite(const char* path)
{
    {
        const LockGuard guard(writeLock);
        if (writeFile != nullptr) {
            return true;
        }
    }
    if (path == nullptr) {
        return false;
    }
    // Opened with the lock free, since opening can take its time and the reader thread writes under it.
    // Binary, so that CR LF stays CR LF everywhere.
    CStdioFile opened(std::fopen(path, "ab"));
    if (opened == nullptr) {
        opened.reset(std::fopen(path, "wb+"));
    }
    const LockGuard guard(writeLock);
    if (writeFile == nullptr) { // nobody was faster
        writeFile = std::move(opened);
    }
    return writeFile != nullptr;
}

bool CGPSLogDeviceImpl::WriteLog(const char* text)
{
    if (text == nullptr) {
        return false;
    }
    const LockGuard guard(writeLock); // from the test on, so that the stream can't close in between
    if (writeFile == nullptr) {
        return false;
    }
    if (logType == LOGTYPE_NMEA) {
        WriteLine(text);
    }
    return true;
}

void CGPSLogDeviceImpl::WriteLine(const char* text)
{
    const std::size_t length = std::strlen(text);
    if (HasLineEnd(text, length)) {
        Write(writeFile.get(), text, length);
    } else if (length + LINE_END_LENGTH <= LINE_ROOM) {
        char line[LINE_ROOM] = {};
        std::copy_n(LINE_END, LINE_END_LENGTH, std::copy_n(text, length, line));
        Write(writeFile.get(), line, length + LINE_END_LENGTH);
    } else {
        Write(writeFile.get(), text, length);
        Write(writeFile.get(), LINE_END, LINE_END_LENGTH);
    }
}

bool CGPSLogDeviceImpl::CloseLogFile()
{
    const LockGuard guard(
        writeLock); // until all is written out, so that no second stream gets in between two lines
    const bool wasOpen = writeFile != nullptr;
    writeFile.reset();
    return wasOpen;
}

} // namespace GPS
