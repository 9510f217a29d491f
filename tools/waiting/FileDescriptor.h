// FileDescriptor.h: owns one open file descriptor.
#pragma once

#include <utility>

#include <unistd.h>

namespace kestgps
{

/// Closes what it holds when it goes.
class FileDescriptor
{
public:
    FileDescriptor() = default;
    /// descriptor: owned from here on; -1 is none.
    explicit FileDescriptor(int descriptor) noexcept : descriptor(descriptor) {}
    FileDescriptor(FileDescriptor&& other) noexcept : descriptor(std::exchange(other.descriptor, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept
    {
        std::swap(descriptor, other.descriptor);
        return *this;
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor() { Close(); }

    bool IsOpen() const noexcept { return descriptor >= 0; }
    /// Result: the descriptor, still owned here; -1 when there is none.
    int Get() const noexcept { return descriptor; }
    /// Result: the descriptor, from here on the caller's.
    int Release() noexcept { return std::exchange(descriptor, -1); }
    void Close() noexcept
    {
        if (IsOpen()) {
            close(Release()); // closed even if a signal interrupts it
        }
    }

private:
    int descriptor = -1; // owned
};

} // namespace kestgps
