#include "tervale-agent/StateLog.h"

#include "Base/Overloaded.h"

#include <cmath>

namespace tervale {

namespace {

std::string textOf(const Action& action) {
    return std::visit(
        overloaded{[](const action::Automatic&) { return std::string("automatic"); },
                   [](const action::Fixed& fixed) {
                       return std::to_string(std::lround(fixed.speed * 100)) + "%";
                   },
                   [](const action::Profile& profile) { return "profile " + profile.id.text(); }},
        action);
}

std::string textOf(const std::optional<Action>& timer) {
    return timer ? textOf(*timer) : "none";
}

} // namespace

std::vector<std::string> StateLog::changes(const BridgeState& state) {
    std::vector<std::string> lines;
    const BridgeState earlier = before.value_or(BridgeState{});
    if (!before || state.selection != earlier.selection)
        lines.push_back("Selection: " + textOf(state.selection));
    if (state.timerAction != earlier.timerAction || state.timerEnds != earlier.timerEnds)
        lines.push_back("Timer: " + textOf(state.timerAction));
    if (state.profiles != earlier.profiles)
        lines.push_back("Profiles: " + std::to_string(state.profiles.size()));
    if (state.launchAtLogin != earlier.launchAtLogin)
        lines.push_back(std::string("Launch at login: ") + (state.launchAtLogin ? "on" : "off"));
    if (state.status != earlier.status)
        lines.push_back("Status: " + state.status.value_or("none"));
    before = state;
    return lines;
}

} // namespace tervale
