#pragma once

#include "Machine/MachineChoice.h"
#include "tervale-agent/AgentLog.h"

#include <optional>
#include <string>
#include <vector>

namespace tervale {

/// With which this program becomes the guard of an agent on that machine, and logs as much as the
/// agent does. Not for people.
std::vector<std::string> guardArguments(const MachineChoice& machine, AgentLog::Level level);

/// Is the agent's guard, if the program's arguments ask for one: hands the fans back, over a
/// connection of its own, when the agent is gone. The exit status; nothing if they ask for
/// something else. To be called before any object of the toolkit is made.
std::optional<int> standGuard(int count, char** arguments);

} // namespace tervale
