#include "tervalectl/Session.h"

#include "Platform/GuardLock.h"
#include "Platform/Platform.h"

#include <variant>

namespace tervale {

Session sessionOf(const MachineChoice& machine) {
    if (std::holds_alternative<machineChoice::Simulated>(machine))
        return {.agentProcess = [] { return std::nullopt; },
                .isGuard = [](std::int64_t) { return false; },
                .hasChannel = [] { return true; },
                .makePreferences = [] { return makePreferences("tervale-simulation"); }};
    return {.agentProcess = [] { return AgentLock::holder(); },
            .isGuard = [](std::int64_t process) { return guardLock::isHeldBy(process); },
            .hasChannel = [] { return makeNotificationCenter() != nullptr; },
            .makePreferences = [] { return makePreferences("tervale"); }};
}

std::optional<RunningAgent> runningAgent(const Session& session) {
    const auto holder = session.agentProcess();
    if (!holder)
        return std::nullopt;
    if (!holder->guard || session.isGuard(*holder->guard))
        return RunningAgent{*holder, holder->guard.has_value()};
    // The agent may have ended, or started another guard, since it was asked.
    const auto again = session.agentProcess();
    if (!again)
        return std::nullopt;
    return RunningAgent{*again, again->guard && session.isGuard(*again->guard)};
}

} // namespace tervale
