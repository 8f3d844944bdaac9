#pragma once

#include "Platform/FileLock.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace tervale {

/// What the one agent of a user's session holds for as long as it runs, however it ends. The file
/// says, a line each, and only while it is locked:
///
/// | line                         | meaning                                             |
/// |------------------------------|-----------------------------------------------------|
/// | pid=1234                     | the agent's process                                 |
/// | started=2026-01-31T09:13:28Z | when it took the lock, in UTC                       |
/// | guard=1235                   | its guard's process; left out while there is none   |
class AgentLock {
  public:
    /// Thrown where another agent runs; one line for people.
    struct Refused : std::runtime_error {
        using std::runtime_error::runtime_error;
    };
    /// Thrown where no agent could have the lock, for a reason that lies in the file.
    struct Unavailable : Refused {
        using Refused::Refused;
    };
    struct Holder {
        /// None in the moment in which the lock is taken and the file not yet written, and where
        /// the disk is full.
        std::optional<std::int64_t> process;
        /// As the file has it.
        std::string started;
        std::optional<std::int64_t> guard;

        bool operator==(const Holder&) const = default;
    };
    /// How long the lock is waited for: somebody may just look at it.
    static constexpr std::chrono::milliseconds defaultPatience{300};

    /// In the runtime folder.
    static std::filesystem::path defaultPath();
    /// The agent that runs; nothing if none does.
    static std::optional<Holder> holder(const std::filesystem::path& path = defaultPath());

    /// Throws `Refused`, or `Unavailable`.
    explicit AgentLock(const std::filesystem::path& path = defaultPath(),
                       std::chrono::milliseconds patience = defaultPatience);

    /// Takes the lock anew where its file was removed or replaced. Throws `Refused` where another
    /// agent has come to hold it, and `Unavailable`.
    void keep();
    /// Tells which process is the guard, if one is.
    void setGuard(std::optional<std::int64_t> process);

  private:
    static FileLock take(const std::filesystem::path& path, std::chrono::milliseconds patience);
    void write() const;

    std::filesystem::path path;
    FileLock lock;
    Holder self;
};

} // namespace tervale
