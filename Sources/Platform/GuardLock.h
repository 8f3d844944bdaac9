#pragma once

#include <cstdint>
#include <filesystem>

namespace tervale {

/// The file that the guard of the session's agent holds locked for as long as it stands, seen from
/// outside.
namespace guardLock {

/// In the runtime folder.
std::filesystem::path defaultPath();

/// Whether this process stands guard: it is there, it is this user's, and a guard holds the lock.
bool isHeldBy(std::int64_t process, const std::filesystem::path& path = defaultPath());

} // namespace guardLock

} // namespace tervale
