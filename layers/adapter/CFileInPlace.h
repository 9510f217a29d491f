// CFileInPlace.h: a file that appears under its name when it is whole.
#pragma once

#include <climits>

#include <sys/stat.h>

namespace adapter
{

/// Written under another name in the same folder, then renamed. Every failure leaves errno.
class CFileInPlace
{
public:
    CFileInPlace() noexcept = default;
    CFileInPlace(const CFileInPlace&) = delete;
    CFileInPlace& operator=(const CFileInPlace&) = delete;
    /// Takes away what hasn't been put in place.
    ~CFileInPlace();

    /// Finds out where the path leads.
    /// Result: false where the file can't stand: the name is too long, or another thing than a file is there.
    bool Locate(const char* path) noexcept;
    /// Result: true when the file that is there is this one.
    bool Is(const struct stat& other) const noexcept;
    /// Result: false when no file can be made in the folder.
    bool Create() noexcept;
    int Descriptor() const noexcept { return descriptor; }
    /// Puts the file in its place, of the same mode as the one that was there.
    /// Result: false when something couldn't be written.
    bool Place() noexcept;

private:
    bool Close() noexcept;

    char path[PATH_MAX] = ""; // links resolved
    char temporary[PATH_MAX + 32] = "";
    struct stat there = {}; // of the file that is there
    bool exists = false;
    int descriptor = -1;
};

} // namespace adapter
