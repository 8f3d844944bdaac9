#include "tervalectl/StatusJudgement.h"

#include "Profiles/StoringFailure.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tervale {

namespace {

using namespace std::string_view_literals;

/// Of a machine whose fans run at full speed; nothing comes before it.
constexpr std::string_view tooHot = "Too hot: ";
/// Behind what keeps them from it.
constexpr std::string_view hotInVain = "It is too hot: ";
/// Stands behind whatever else there is to tell.
constexpr std::string_view dryRun = "Dry run: ";

/// What the agent says once it has done, or refused, what somebody asked for. Nothing of it keeps
/// the fans from being driven.
constexpr std::array answers{
    "Tervale is up to date."sv,
    "A command was not taken: it is too long."sv,
    "That timer was not set: "sv,
    "Those profiles were not saved: they are too long."sv,
    "The profiles that could not be read are kept as "sv,
};

} // namespace

bool tellsThatAllIsWell(const BridgeState& state) {
    if (!state.status || state.status->empty())
        return true;
    const auto begins = [&](std::string_view text) { return state.status->starts_with(text); };
    return !tellsStoringFailure(state) && state.status->find(dryRun) == std::string::npos &&
           (begins(tooHot) || std::ranges::any_of(answers, begins));
}

bool tellsSafety(const BridgeState& state) {
    return state.status && (state.status->starts_with(tooHot) ||
                            state.status->find(hotInVain) != std::string::npos);
}

} // namespace tervale
