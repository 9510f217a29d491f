#include "tools/files/OutputFile.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <system_error>

#include <fcntl.h>

#include "tools/errors/ToolError.h"
#include "tools/files/SameFile.h"
#include "tools/signals/SignalEnd.h"

namespace kestgps
{

namespace
{

namespace fs = std::filesystem;

/// Follows the symbolic links of a path up to where there is none, or up to a name of an open descriptor of
/// this process. path: stat has found no circle in it. Result: such a descriptor.
std::optional<int> FollowLinks(fs::path& path)
{
    std::error_code ignored;
    const fs::path descriptors = fs::canonical("/proc/self/fd", ignored);
    while (fs::is_symlink(path, ignored)) {
        if (!descriptors.empty() && fs::canonical(path.parent_path(), ignored) == descriptors) {
            return std::stoi(path.filename());
        }
        path = path.parent_path() / fs::read_symlink(path);
    }
    return std::nullopt;
}

/// Result: the mode of a file that is made without saying more.
mode_t DefaultMode() noexcept
{
    constexpr mode_t ALL = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
    const mode_t mask = umask(0); // there is no other way to ask for it
    umask(mask);
    return ALL & ~mask;
}

} // namespace

OutputFile::OutputFile(const std::string& path, const std::string& input) : name(path)
{
    struct stat there = {};
    const bool exists = stat(path.c_str(), &there) == 0;
    if (!exists && errno != ENOENT) {
        Fail();
    }
    if (exists && IsSameFile(there, input)) {
        throw ToolError(name + " is the file that is read; choose another one to write");
    }
    fs::path followed = path;
    const std::optional<int> descriptor = FollowLinks(followed);
    target = followed;
    if (exists) { // what can't be opened isn't replaced either
        file = FileDescriptor(descriptor ? fcntl(*descriptor, F_DUPFD_CLOEXEC, 0)
                                         : open(target.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC));
        if (!file.IsOpen()) {
            Fail();
        }
    }
    if (!descriptor && (!exists || S_ISREG(there.st_mode))) {
        OpenBeside(exists ? &there : nullptr);
    }
}

/// there: what it takes the place of; null when there is nothing.
void OutputFile::OpenBeside(const struct stat* there)
{
    const mode_t mode = there != nullptr ? there->st_mode & ~static_cast<mode_t>(S_IFMT) : DefaultMode();
    temporary = fs::path(target).replace_filename(".kestgps-XXXXXX");
    RemoveWhenStopped(temporary.c_str()); // before it is there, so that no moment is left out
    file = FileDescriptor(mkostemp(temporary.data(), O_CLOEXEC));
    if (file.IsOpen() && there != nullptr && fchown(file.Get(), there->st_uid, there->st_gid) != 0) {
        // The system keeps that for itself; the file is then the caller's.
    }
    if (!file.IsOpen() || fchmod(file.Get(), mode) != 0) {
        const int error = errno;
        RemoveWhenStopped(nullptr);
        unlink(temporary.c_str());
        errno = error;
        Fail("no file can be made beside it: ");
    }
}

OutputFile::~OutputFile()
{
    if (!temporary.empty()) {
        unlink(temporary.c_str());
        RemoveWhenStopped(nullptr);
    }
}

void OutputFile::Write(std::string_view bytes)
{
    constexpr std::size_t WORTH_WRITING = 65536;
    held += bytes;
    if (temporary.empty() || held.size() >= WORTH_WRITING) {
        Flush();
    }
}

void OutputFile::Flush()
{
    std::string_view left = held;
    while (!left.empty()) {
        const ssize_t count = write(file.Get(), left.data(), left.size());
        if (count >= 0) {
            left.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            Fail();
        }
    }
    held.clear();
}

void OutputFile::Finish()
{
    Flush();
    if (temporary.empty()) {
        return;
    }
    // On the disk before it takes the other's place, so that a power cut leaves one of the two.
    if (fsync(file.Get()) != 0 || close(file.Release()) != 0) {
        Fail();
    }
    HoldBackStopRequests(); // they come too late: with the next call the work is done
    if (rename(temporary.c_str(), target.c_str()) != 0) {
        Fail();
    }
    RemoveWhenStopped(nullptr);
    temporary.clear();
}

void OutputFile::Fail(const std::string& what) const
{
    throw ToolError("can't write " + name + ": " + what + ErrorText(errno));
}

} // namespace kestgps
