#include "tervalectl/Session.h"

#include "Platform/Platform.h"

#include <variant>

namespace tervale {

Session sessionOf(const MachineChoice& machine) {
    if (std::holds_alternative<machineChoice::Simulated>(machine))
        return {[] { return std::nullopt; }, [] { return true; },
                [] { return makePreferences("tervale-simulation"); }};
    return {[] { return AgentLock::holder(); }, [] { return makeNotificationCenter() != nullptr; },
            [] { return makePreferences("tervale"); }};
}

} // namespace tervale
