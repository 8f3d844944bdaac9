#include "Agent/Agent.h"

#include "Agent/StarterProfiles.h"
#include "Base/Overloaded.h"
#include "JSON/JSON.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace tervale {

namespace {

constexpr const char* launchAtLoginKey = "launchAtLogin";
constexpr const char* profilesKey = "profiles";
/// Where profiles that could not be read are kept.
constexpr const char* unreadableKey = "profiles.unreadable";

constexpr const char* tooHot = "Too hot: Max until every CPU and GPU sensor is below 85 °C.";
constexpr const char* upToDate = "Tervale is up to date.";
constexpr const char* notStored = "Not everything could be stored yet. Another attempt follows.";
constexpr const char* unreadable =
    "The stored profiles cannot be read. They stay until you save others.";
constexpr const char* tooLong = "Those profiles were not saved: they are too long.";
constexpr const char* timerRefused = "That timer was not set: it must end within 24 hours.";

Preferences::Data dataOf(std::string_view text) {
    const auto bytes = std::as_bytes(std::span(text));
    return {bytes.begin(), bytes.end()};
}

/// A fixed speed outside the fans' range means the nearer end of it.
Action withinRange(Action action) {
    if (auto* fixed = std::get_if<action::Fixed>(&action))
        fixed->speed = std::clamp(fixed->speed, 0.0, 1.0);
    return action;
}

bool holdsProfiles(const Preferences::Data& data) {
    const std::string_view text(reinterpret_cast<const char*>(data.data()), data.size());
    return std::holds_alternative<std::vector<Profile>>(decode<std::vector<Profile>>(text));
}

/// Whether a state with these profiles can be published, whatever else it says.
bool fits(BridgeState state, const std::vector<Profile>& profiles) {
    constexpr std::size_t longestStatus = 1024;
    state.profiles = profiles;
    state.status.emplace(longestStatus, ' ');
    return Bridge::fits(state);
}

} // namespace

Agent::Agent(Surroundings surroundings)
    : world(std::move(surroundings)),
      bridge(world.center),
      store(world.preferences),
      fans(world.smc) {
    state.selection = withinRange(store.selection());
    state.launchAtLogin = storedLaunchAtLogin();
    takeUpProfiles();
    commandObserver = bridge.onCommand([this](const BridgeCommand& command) { handle(command); });
    control();
    publish();
}

void Agent::takeUpProfiles() {
    // The user who deleted every profile does not want the starters back.
    if (!world.preferences.contains(profilesKey)) {
        state.profiles = starterProfiles();
        keep();
        return;
    }
    state.profiles = store.profiles();
    const auto data = world.preferences.data(profilesKey);
    profilesUnreadable = !data || !holdsProfiles(*data) || !fits(state, state.profiles);
    if (profilesUnreadable)
        state.profiles.clear();
}

void Agent::tick() {
    if (nextAttempt && world.clock.now() >= *nextAttempt)
        keep();
    if (state.timerEnds && world.clock.now() >= *state.timerEnds)
        endTimer();
    control();
    if (state != published)
        publish();
}

std::optional<std::string> Agent::handBack() {
    return fans.apply(target::Automatic{});
}

void Agent::handle(const BridgeCommand& command) {
    std::visit(
        overloaded{
            [this](const command::Select& select) {
                state.selection = withinRange(select.action);
                notice.reset();
            },
            [this](const command::StartTimer& timer) { startTimer(timer); },
            [this](const command::SaveProfiles& save) { saveProfiles(save.profiles); },
            [this](const command::SetLaunchAtLogin& set) { state.launchAtLogin = set.enabled; },
            [this](const command::CancelTimer&) { endTimer(); },
            [this](const command::CheckForUpdates&) { notify(upToDate); },
            [](const command::RequestState&) {}},
        command);
    keep();
    // The fans follow at once rather than at the next tick.
    control();
    publish();
}

void Agent::saveProfiles(const std::vector<Profile>& profiles) {
    if (!fits(state, profiles)) {
        notify(tooLong);
        return;
    }
    state.profiles = profiles;
    notice.reset();
    if (!std::exchange(profilesUnreadable, false))
        return;
    // Keep the unreadable text, so that the user can repair it.
    if (const auto data = world.preferences.data(profilesKey))
        world.preferences.setData(unreadableKey, *data);
    // An empty list reads like one that is unreadable, and would not be written otherwise.
    store.setProfiles(state.profiles);
}

void Agent::keep() {
    if (!profilesUnreadable && store.profiles() != state.profiles)
        store.setProfiles(state.profiles);
    if (withinRange(store.selection()) != state.selection)
        store.setSelection(state.selection);
    if (storedLaunchAtLogin() != state.launchAtLogin)
        world.preferences.setData(launchAtLoginKey, dataOf(state.launchAtLogin ? "true" : "false"));
    nextAttempt.reset();
    if (!isKept())
        nextAttempt = world.clock.now() + storingInterval;
}

bool Agent::isKept() const {
    return (profilesUnreadable || store.profiles() == state.profiles) &&
           withinRange(store.selection()) == state.selection &&
           storedLaunchAtLogin() == state.launchAtLogin;
}

void Agent::startTimer(const command::StartTimer& timer) {
    // Not a number is refused as well.
    if (!(timer.duration > 0 && timer.duration <= longestTimer)) {
        notify(timerRefused);
        return;
    }
    state.timerAction = withinRange(timer.action);
    state.timerEnds = world.clock.now() + timer.duration;
    notice.reset();
}

void Agent::endTimer() {
    state.timerAction.reset();
    state.timerEnds.reset();
}

void Agent::notify(const char* text) {
    notice = Notice{text, world.clock.now() + noticeDuration};
}

void Agent::control() {
    const Target target = evaluate();
    const std::optional<std::string> error = fans.apply(target);
    if (notice && world.clock.now() >= notice->until)
        notice.reset();
    if (controller.safetyEngaged())
        state.status = tooHot;
    else if (error)
        state.status = error;
    else if (nextAttempt)
        state.status = notStored;
    else if (notice)
        state.status = notice->text;
    else if (profilesUnreadable)
        state.status = unreadable;
    else
        state.status.reset();
}

Target Agent::evaluate() {
    const Action action = state.timerAction.value_or(state.selection);
    Inputs inputs;
    inputs.minuteOfDay = world.clock.minuteOfDay();
    const Needs needs = Controller::needs(action, state.profiles, inputs.minuteOfDay);
    findSensors();
    if (sampler)
        inputs.temperatures = sampler->sample(needs.temperatures, world.clock.now());
    if (needs.load && world.load)
        inputs.load = world.load();
    return controller.target(action, state.profiles, inputs);
}

void Agent::findSensors() {
    if (sampler)
        return;
    try {
        const auto sensors = world.smc.temperatureSensors();
        // A controller that has keys but answers for none of them may do so later.
        if (sensors.empty())
            return;
        sampler.emplace(sensors, [this](const TemperatureSensor& sensor) {
            return world.smc.temperature(sensor);
        });
    } catch (const SMCError&) {
        // Without a list of keys there is nothing to sample; the next tick tries again.
    }
}

bool Agent::storedLaunchAtLogin() const {
    return world.preferences.data(launchAtLoginKey) == dataOf("true");
}

void Agent::publish() {
    published = state;
    bridge.publish(state);
}

} // namespace tervale
