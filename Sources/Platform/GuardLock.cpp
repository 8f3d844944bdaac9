#include "Platform/GuardLock.h"

#include "Platform/FileLock.h"
#include "Platform/RuntimeFolder.h"

#include <csignal>
#include <limits>
#include <sys/types.h>

namespace tervale {

namespace {

/// A process that this user may send a signal to. Numbers that stand for several processes are
/// nobody's.
bool isOurs(std::int64_t process) {
    return process > 0 && process <= std::numeric_limits<pid_t>::max() &&
           ::kill(static_cast<pid_t>(process), 0) == 0;
}

} // namespace

std::filesystem::path guardLock::defaultPath() {
    return runtimeFolder() / "guard.lock";
}

bool guardLock::isHeldBy(std::int64_t process, const std::filesystem::path& path) {
    // A process that has ended and still has its number holds nothing.
    return isOurs(process) && FileLock::isHeld(path);
}

} // namespace tervale
