#include "Platform/FileLock.h"

#include "Platform/RuntimeFolder.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace tervale {

namespace {

FileLock::Refused refusal(const std::filesystem::path& path, const std::string& reason) {
    return FileLock::Refused("Cannot lock '" + path.string() + "': " + reason + ".");
}

} // namespace

std::optional<FileLock> FileLock::take(const std::filesystem::path& path,
                                       std::chrono::milliseconds patience) {
    constexpr std::chrono::milliseconds pause{10};
    if (!makePrivateFolder(path.parent_path()))
        throw refusal(path, "its folder is not this user's alone to write to");
    const auto deadline = std::chrono::steady_clock::now() + patience;
    for (;;) {
        FileDescriptor file(
            ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR));
        if (!file)
            throw refusal(path, std::strerror(errno));
        if (::flock(file.number(), LOCK_EX | LOCK_NB) == 0) {
            FileLock lock(std::move(file), path);
            // The file may have been removed after it was opened.
            if (lock.isInPlace())
                return lock;
        } else if (errno != EWOULDBLOCK && errno != EINTR) {
            throw refusal(path, std::strerror(errno));
        }
        if (std::chrono::steady_clock::now() >= deadline)
            return std::nullopt;
        std::this_thread::sleep_for(pause);
    }
}

bool FileLock::isInPlace() const {
    struct stat held {};
    struct stat there {};
    return ::fstat(file.number(), &held) == 0 && ::lstat(path.c_str(), &there) == 0 &&
           held.st_dev == there.st_dev && held.st_ino == there.st_ino;
}

bool FileLock::isHeld(const std::filesystem::path& path) {
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW));
    // One who looks holds the lock for a moment, together with others who look.
    return file && ::flock(file.number(), LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

bool FileLock::write(const std::string& text) const {
    return ::pwrite(file.number(), text.data(), text.size(), 0) ==
               static_cast<ssize_t>(text.size()) &&
           ::ftruncate(file.number(), static_cast<off_t>(text.size())) == 0;
}

} // namespace tervale
