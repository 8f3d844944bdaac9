#pragma once

#include "Machine/MachineChoice.h"
#include "Platform/AgentLock.h"
#include "Profiles/Preferences.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace tervale {

/// What of the user's session the agent depends on, for who looks into why it does not do so.
struct Session {
    /// The agent's process; nothing if none runs as a program of its own.
    std::function<std::optional<AgentLock::Holder>()> agentProcess;
    /// Whether the process that the agent names as its guard stands.
    std::function<bool(std::int64_t process)> isGuard;
    /// Whether there is a way to other programs.
    std::function<bool()> hasChannel;
    /// Those that the agent of the machine stores in.
    std::function<std::shared_ptr<Preferences>()> makePreferences;
};

/// That of the machine. A simulated one has all of it in the process.
Session sessionOf(const MachineChoice& machine);

/// An agent's process, and what has become of its guard.
struct RunningAgent {
    AgentLock::Holder holder;
    /// Of the guard that the agent names; false if it names none.
    bool isGuarded = false;
};

/// Nothing if no agent runs as a program of its own.
std::optional<RunningAgent> runningAgent(const Session& session);

} // namespace tervale
