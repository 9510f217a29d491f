#include "layers/adapter/CFileInPlace.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

namespace adapter
{

CFileInPlace::~CFileInPlace()
{
    const int error = errno;
    Close();
    if (temporary[0] != '\0') {
        unlink(temporary);
    }
    errno = error; // of what failed before
}

bool CFileInPlace::Locate(const char* name) noexcept
{
    if (realpath(name, path) == nullptr) {
        if (errno != ENOENT) {
            return false;
        }
        const std::size_t length = std::strlen(name);
        if (length == 0 || length >= sizeof path) {
            errno = length == 0 ? ENOENT : ENAMETOOLONG;
            return false;
        }
        std::memcpy(path, name, length + 1);
        return true;
    }
    if (stat(path, &there) != 0) {
        return false;
    }
    exists = true;
    if (!S_ISREG(there.st_mode)) {
        errno = S_ISDIR(there.st_mode) ? EISDIR : EEXIST;
        return false;
    }
    return true;
}

bool CFileInPlace::Is(const struct stat& other) const noexcept
{
    return exists && there.st_dev == other.st_dev && there.st_ino == other.st_ino;
}

bool CFileInPlace::Create() noexcept
{
    static std::atomic<unsigned> made{0};
    constexpr int TRIES = 100; // others may be at it, or have been killed
    const char* const slash = std::strrchr(path, '/');
    const int folder = slash != nullptr ? static_cast<int>(slash - path) + 1 : 0;
    for (int tries = 0; tries < TRIES; ++tries) {
        static_cast<void>(std::snprintf(temporary, sizeof temporary, "%.*s.adapted-%ld-%u", folder, path,
                                        static_cast<long>(getpid()), made++));
        descriptor = open(temporary, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (descriptor >= 0) {
            return true;
        }
        temporary[0] = '\0';
        if (errno != EEXIST) {
            return false;
        }
    }
    return false;
}

bool CFileInPlace::Place() noexcept
{
    const bool whole = (!exists || fchmod(descriptor, there.st_mode & 0777) == 0) && fsync(descriptor) == 0;
    if (!whole || !Close() || rename(temporary, path) != 0) {
        return false;
    }
    temporary[0] = '\0';
    return true;
}

bool CFileInPlace::Close() noexcept
{
    const bool closed = descriptor < 0 || close(descriptor) == 0;
    descriptor = -1;
    return closed;
}

} // namespace adapter
