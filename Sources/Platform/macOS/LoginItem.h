#pragma once

#include <optional>
#include <string>

namespace tervale {

/// Has launchd start the agent of the program's bundle at login, or no longer. Why the system
/// refuses, in its words; nothing if all is well, also where it was so already. launchd starts the
/// agent with the first, and ends the one that it started with the second. Main thread.
std::optional<std::string> setLoginItem(bool enabled);

} // namespace tervale
