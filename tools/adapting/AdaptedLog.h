// AdaptedLog.h: a log whose sentences are adapted while it is read.
#pragma once

#include <mutex>
#include <string>
#include <thread>

#include "layers/adapter/AdapterCounts.h"
#include "tools/waiting/FileDescriptor.h"

namespace kestgps
{

/// A thread reads the log and fills a pipe with what the adapter makes of it; whoever reads the pipe sees an
/// adapted log, of any size, that takes no more memory than the pipe does.
class AdaptedLog
{
public:
    /// path: anything that can be read to its end. Throws ToolError when it can't be opened or the system is
    /// short of descriptors, std::system_error when it has no thread to give.
    explicit AdaptedLog(const std::string& path);
    /// Waits for the thread, which ends though the pipe hasn't been read to its end.
    ~AdaptedLog();
    AdaptedLog(const AdaptedLog&) = delete;
    AdaptedLog& operator=(const AdaptedLog&) = delete;

    /// Result: a path by which the pipe can be opened and read once, as long as this object is there.
    std::string Path() const;
    /// Result: the counts of what has been adapted so far, which may be more than has been read. Thread: any.
    adapter::AdapterCounts Counts() const;
    /// Result: errno of the read that ended the log early, else 0. Thread: any; for after the log's end.
    int ReadError() const;

private:
    void Run() noexcept;

    FileDescriptor log;
    FileDescriptor reading;
    FileDescriptor writing; // the thread's
    mutable std::mutex lock;
    adapter::AdapterCounts counts; // guarded by lock
    int readError = 0;             // guarded by lock
    std::thread thread;            // the last field: it uses the others
};

} // namespace kestgps
