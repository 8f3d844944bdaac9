#include "Agent/AgentPreferences.h"

#include "Agent/StarterProfiles.h"
#include "Agent/UnreadableProfiles.h"
#include "JSON/JSON.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>
#include <utility>
#include <variant>

namespace tervale {

namespace {

constexpr const char* launchAtLoginKey = "launchAtLogin";

Preferences::Data dataOf(std::string_view text) {
    const auto bytes = std::as_bytes(std::span(text));
    return {bytes.begin(), bytes.end()};
}

/// Nothing where there is none, or where it cannot be read.
template <class Value>
std::optional<Value> stored(const Preferences& preferences, const char* key) {
    const auto data = preferences.data(key);
    if (!data)
        return std::nullopt;
    auto value = decode<Value>({reinterpret_cast<const char*>(data->data()), data->size()});
    auto* read = std::get_if<Value>(&value);
    return read ? std::optional(std::move(*read)) : std::nullopt;
}

} // namespace

bool canTell(BridgeState state, const std::vector<Profile>& profiles) {
    constexpr std::size_t longestStatus = 1024;
    state.profiles = profiles;
    state.status.emplace(longestStatus, ' ');
    return Bridge::fits(state);
}

Action withinRange(Action action) {
    if (auto* fixed = std::get_if<action::Fixed>(&action))
        fixed->speed = std::clamp(fixed->speed, 0.0, 1.0);
    return action;
}

AgentPreferences::AgentPreferences(Preferences& stored, const Clock& given)
    : clock(given),
      preferences(stored, clock),
      profileStore(preferences) {}

void AgentPreferences::takeUp(BridgeState& state) {
    state.launchAtLogin = preferences.data(launchAtLoginKey) == dataOf("true");
    takeUpSelection(state);
    takeUpProfiles(state);
    nextReading = clock.now() + CheckedPreferences::interval;
}

void AgentPreferences::takeUpSelection(BridgeState& state) {
    const auto selection = stored<Action>(preferences, ProfileStore::selectionKey);
    selectionUnreadable = !selection && preferences.contains(ProfileStore::selectionKey);
    if (selection)
        state.selection = withinRange(*selection);
}

void AgentPreferences::takeUpProfiles(BridgeState& state) {
    // The user who deleted every profile does not want the starters back.
    offersStarters = !preferences.contains(ProfileStore::profilesKey);
    if (offersStarters) {
        state.profiles = starterProfiles();
        profilesChanged = true;
        return;
    }
    const auto profiles = stored<std::vector<Profile>>(preferences, ProfileStore::profilesKey);
    profilesUnreadable = !profiles || !canTell(state, *profiles);
    state.profiles = profilesUnreadable ? std::vector<Profile>() : *profiles;
}

bool AgentPreferences::tryAgain(BridgeState& state) {
    // Whatever has been stored there in the meantime is not the starters' to replace.
    const bool replaced = offersStarters && preferences.isWaiting(ProfileStore::profilesKey) &&
                          preferences.contains(ProfileStore::profilesKey);
    if (replaced) {
        preferences.forget(ProfileStore::profilesKey);
        takeUpProfiles(state);
        nextReading = clock.now() + CheckedPreferences::interval;
    }
    preferences.retry();
    return readAgain(state) || replaced;
}

bool AgentPreferences::readAgain(BridgeState& state) {
    const Date now = clock.now();
    const bool waits = now < nextReading && nextReading - now <= CheckedPreferences::interval;
    if (waits || unreadable() == Unreadable::nothing)
        return false;
    nextReading = now + CheckedPreferences::interval;
    if (selectionUnreadable)
        takeUpSelection(state);
    // Starters are for who never stored anything.
    if (profilesUnreadable && preferences.contains(ProfileStore::profilesKey))
        takeUpProfiles(state);
    return true;
}

void AgentPreferences::changeSelection() {
    selectionUnreadable = false;
    selectionChanged = true;
}

void AgentPreferences::changeProfiles() {
    profilesUnreadable = false;
    offersStarters = false;
    profilesChanged = true;
}

void AgentPreferences::changeLaunchAtLogin() {
    launchAtLoginChanged = true;
}

void AgentPreferences::store(const BridgeState& state) {
    if (std::exchange(selectionChanged, false))
        profileStore.setSelection(state.selection);
    if (std::exchange(profilesChanged, false))
        profileStore.setProfiles(state.profiles);
    if (std::exchange(launchAtLoginChanged, false))
        preferences.setData(launchAtLoginKey, dataOf(state.launchAtLogin ? "true" : "false"));
}

AgentPreferences::Unreadable AgentPreferences::unreadable() const {
    if (profilesUnreadable)
        return Unreadable::profiles;
    return selectionUnreadable ? Unreadable::selection : Unreadable::nothing;
}

std::optional<std::string> AgentPreferences::keepUnreadableProfiles() {
    return unreadableProfiles::keep(preferences, clock.now());
}

} // namespace tervale
