#include "Platform/Linux/FilePreferences.h"

#include "Base/Precondition.h"
#include "Platform/FileDescriptor.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <pwd.h>
#include <stdio.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace tervale {

namespace {

/// More than any preferences take. A larger file is somebody else's, and must not fill the memory.
constexpr std::size_t largestValue = std::size_t{16} << 20U;

bool isSafeKey(const std::string& key) {
    constexpr std::size_t longest = 200;
    const auto isSafe = [](char character) {
        return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
               (character >= '0' && character <= '9') || character == '.' || character == '_' ||
               character == '-';
    };
    return !key.empty() && key.size() <= longest && key.front() != '.' &&
           std::all_of(key.begin(), key.end(), isSafe);
}

bool writeAll(int file, const Preferences::Data& data) {
    std::size_t written = 0;
    while (written < data.size()) {
        const ssize_t count = ::write(file, data.data() + written, data.size() - written);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        written += static_cast<std::size_t>(count);
    }
    return true;
}

std::optional<Preferences::Data> readAll(int file) {
    Preferences::Data data;
    std::array<std::byte, 65536> buffer{};
    for (;;) {
        const ssize_t count = ::read(file, buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return std::nullopt;
        if (count == 0)
            return data;
        if (data.size() + static_cast<std::size_t>(count) > largestValue)
            return std::nullopt;
        data.insert(data.end(), buffer.begin(), buffer.begin() + count);
    }
}

/// Syncs the folder, so that created and renamed files survive a power cut. A file system that
/// cannot do so for folders has nothing to sync.
bool syncFolder(const std::filesystem::path& folder) {
    const FileDescriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return descriptor && (::fsync(descriptor.number()) == 0 || errno == EINVAL);
}

bool createFolder(const std::filesystem::path& folder) {
    std::error_code error;
    if (folder.empty() || std::filesystem::exists(folder, error))
        return true;
    if (!createFolder(folder.parent_path()))
        return false;
    if (::mkdir(folder.c_str(), S_IRWXU) != 0)
        return errno == EEXIST;
    return syncFolder(folder.parent_path());
}

/// The system's words for the last error.
std::string reason() {
    return std::generic_category().message(errno);
}

/// Removes a file that nobody wants, and tells why.
std::string givenUp(const std::string& path) {
    std::string why = reason();
    ::unlink(path.c_str());
    return why;
}

/// Creates, writes and syncs the file that `pattern` becomes the name of. Its mode is 0600. Tells
/// why if that fails.
std::optional<std::string> writeTemporary(std::string& pattern, const Preferences::Data& data) {
    FileDescriptor file(::mkostemp(pattern.data(), O_CLOEXEC));
    if (!file)
        return reason();
    if (!writeAll(file.number(), data) || ::fsync(file.number()) != 0 || !file.close())
        return givenUp(pattern);
    return std::nullopt;
}

/// What a temporary file's name begins with; the rest is six characters. The dot makes sure that it
/// is never the file of a key.
std::string temporaryPrefix(const std::string& name) {
    return "." + name + ".";
}

/// Whoever was interrupted while writing left a temporary file behind. Only one that nobody can
/// still be writing goes.
void removeLeftovers(const std::filesystem::path& folder, const std::string& file) {
    constexpr std::size_t randomCharacters = 6;
    constexpr auto longestWrite = std::chrono::hours(1);
    const std::string prefix = temporaryPrefix(file);
    const auto oldest = std::filesystem::file_time_type::clock::now() - longestWrite;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string name = entry->path().filename();
        std::error_code unknown;
        if (name.size() == prefix.size() + randomCharacters && name.starts_with(prefix) &&
            entry->last_write_time(unknown) < oldest && !unknown)
            ::unlink(entry->path().c_str());
    }
}

/// Where the value lies: at the end of the links that people may have put in its place. Nothing,
/// and the reason in `errno`, where that cannot be told: a link must not be taken for the value
/// itself.
std::optional<std::filesystem::path> followed(std::filesystem::path path) {
    constexpr int mostLinks = 40;
    for (int i = 0; i < mostLinks; ++i) {
        struct stat status {};
        if (::lstat(path.c_str(), &status) != 0)
            return errno == ENOENT ? std::optional(path) : std::nullopt;
        if (!S_ISLNK(status.st_mode))
            return path;
        std::error_code error;
        path = path.parent_path() / std::filesystem::read_symlink(path, error);
        if (error) {
            errno = error.value();
            return std::nullopt;
        }
    }
    errno = ELOOP;
    return std::nullopt;
}

std::filesystem::path homeFolder() {
    const char* home = std::getenv("HOME");
    if (home && *home == '/')
        return home;
    const passwd* user = ::getpwuid(::getuid());
    return user && user->pw_dir ? user->pw_dir : "/";
}

} // namespace

std::filesystem::path configurationFolder() {
    const char* configured = std::getenv("XDG_CONFIG_HOME");
    if (configured && *configured == '/')
        return configured;
    return homeFolder() / ".config";
}

FilePreferences::FilePreferences(std::filesystem::path folder) : folder(std::move(folder)) {}

std::optional<Preferences::Data> FilePreferences::data(const std::string& key) const {
    precondition(isSafeKey(key), "a preferences key is no safe file name");
    const std::filesystem::path path = folder / key;
    // Without O_NONBLOCK, opening a pipe that lies in the file's place would wait for a writer.
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status {};
    if (!file || ::fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return readAll(file.number());
}

bool FilePreferences::contains(const std::string& key) const {
    precondition(isSafeKey(key), "a preferences key is no safe file name");
    struct stat status {};
    // Without permission to look, the file counts as there.
    return ::lstat((folder / key).c_str(), &status) == 0 || (errno != ENOENT && errno != ENOTDIR);
}

std::optional<std::string> FilePreferences::setData(const std::string& key, const Data& data) {
    precondition(isSafeKey(key), "a preferences key is no safe file name");
    if (data.size() > largestValue)
        return std::generic_category().message(EFBIG);
    if (!createFolder(folder))
        return reason();
    const auto path = followed(folder / key);
    if (!path)
        return reason();
    const std::filesystem::path place = path->parent_path();
    const std::string name = path->filename();
    removeLeftovers(place, name);
    std::string temporary = place / (temporaryPrefix(name) + "XXXXXX");
    if (auto why = writeTemporary(temporary, data))
        return why;
    if (::rename(temporary.c_str(), path->c_str()) != 0)
        return givenUp(temporary);
    return syncFolder(place) ? std::nullopt : std::optional(reason());
}

bool FilePreferences::keepCopy(const std::string& key, const std::string& copy) {
    precondition(isSafeKey(key) && isSafeKey(copy), "a preferences key is no safe file name");
    const auto source = followed(folder / key);
    if (!source)
        return false;
    const std::filesystem::path target = folder / copy;
    // A second name needs no room on a full disk, and no permission to read.
    if (::linkat(AT_FDCWD, source->c_str(), AT_FDCWD, target.c_str(), 0) == 0)
        return true;
    // What has no second name, such as a folder, or lies elsewhere, is moved, if nothing is lost.
    return errno != EEXIST &&
           ::renameat2(AT_FDCWD, source->c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) == 0;
}

std::vector<std::string> FilePreferences::keys(const std::string& prefix) const {
    std::vector<std::string> found;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string name = entry->path().filename();
        if (isSafeKey(name) && name.starts_with(prefix))
            found.push_back(name);
    }
    std::ranges::sort(found);
    return found;
}

void FilePreferences::remove(const std::string& key) {
    precondition(isSafeKey(key), "a preferences key is no safe file name");
    ::unlink((folder / key).c_str());
}

} // namespace tervale
