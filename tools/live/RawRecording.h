// RawRecording.h: keeps the bytes of a receiver as they came.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <string>
#include <thread>

#include "tools/waiting/FileDescriptor.h"

namespace kestgps
{

/// Writes to a file on a thread of its own, so that the reader thread never waits for a disk.
///
/// A write that fails ends the recording, with a line to the user at once; whoever sends bytes goes on. Bytes
/// that the disk is too slow for are lost, with a line too.
class RawRecording
{
public:
    /// What waits to be written, at most: a minute and a half of a line of 115200 bit/s.
    static constexpr std::size_t CAPACITY = 1 << 20; // [byte]

    /// path: appended to if it is there. Throws ToolError when it can't be written.
    explicit RawRecording(const std::string& path);
    ~RawRecording();
    RawRecording(const RawRecording&) = delete;
    RawRecording& operator=(const RawRecording&) = delete;

    /// Takes no memory and waits for nobody but another Take. Thread: any.
    void Take(const char* bytes, std::size_t length) noexcept;
    /// Writes what is left. Result: false when not every byte is in the file.
    bool Finish();

private:
    void Run();
    bool Write(const std::string& bytes) const noexcept;

    const std::string path;
    const FileDescriptor file;
    std::mutex lock;
    std::condition_variable change; // bound to lock
    std::string waiting;            // guarded by lock; has CAPACITY from the start
    std::size_t lost = 0;           // guarded by lock; not yet told
    bool ended = false;             // guarded by lock; no more is to come
    bool whole = true;              // guarded by lock
    std::thread writer;             // the last field: it uses the others
};

} // namespace kestgps
