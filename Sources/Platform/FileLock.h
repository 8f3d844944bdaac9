#pragma once

#include "Platform/FileDescriptor.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>

namespace tervale {

/// A file that one process at a time holds locked. The kernel frees it however the process ends;
/// programs that the process starts do not inherit it. The file itself stays.
class FileLock {
  public:
    /// Why a file cannot be locked by anyone, in one line.
    struct Refused : std::runtime_error {
        using std::runtime_error::runtime_error;
    };

    /// Makes the file, and its folder, where they are missing. Nothing if another process holds it
    /// all the while. Throws `Refused` where the folder is not this user's alone to write to, or
    /// the file cannot be had.
    static std::optional<FileLock> take(const std::filesystem::path& path,
                                        std::chrono::milliseconds patience);
    /// Whether a process holds the file, which may be missing.
    static bool isHeld(const std::filesystem::path& path);

    /// Whether the file still lies where it was taken. One that was removed, or replaced, keeps no
    /// other process away.
    bool isInPlace() const;
    /// Replaces what the file says; false if it could not be written.
    bool write(const std::string& text) const;

  private:
    FileLock(FileDescriptor locked, std::filesystem::path path)
        : file(std::move(locked)),
          path(std::move(path)) {}

    FileDescriptor file;
    std::filesystem::path path;
};

} // namespace tervale
