#include "Agent/Agent.h"

#include "Agent/StarterProfiles.h"
#include "Base/Overloaded.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace tervale {

namespace {

constexpr const char* launchAtLoginKey = "launchAtLogin";
constexpr const char* profilesKey = "profiles";

constexpr const char* tooHot = "Too hot: Max until every CPU and GPU sensor is below 85 °C.";
constexpr const char* upToDate = "Tervale is up to date.";
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

} // namespace

Agent::Agent(Surroundings surroundings)
    : world(std::move(surroundings)),
      bridge(world.center),
      store(world.preferences),
      fans(world.smc) {
    // Who has deleted every profile does not want these back.
    if (!world.preferences.data(profilesKey))
        store.setProfiles(starterProfiles());
    state.profiles = store.profiles();
    state.selection = withinRange(store.selection());
    state.launchAtLogin = storedLaunchAtLogin();
    commandObserver = bridge.onCommand([this](const BridgeCommand& command) { handle(command); });
    control();
    publish();
}

void Agent::tick() {
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
    std::visit(overloaded{[this](const command::Select& select) {
                              state.selection = withinRange(select.action);
                              store.setSelection(state.selection);
                              notice.reset();
                          },
                          [this](const command::StartTimer& timer) { startTimer(timer); },
                          [this](const command::SaveProfiles& save) {
                              state.profiles = save.profiles;
                              store.setProfiles(state.profiles);
                          },
                          [this](const command::SetLaunchAtLogin& set) {
                              state.launchAtLogin = set.enabled;
                              world.preferences.setData(launchAtLoginKey,
                                                        dataOf(set.enabled ? "true" : "false"));
                          },
                          [this](const command::CancelTimer&) { endTimer(); },
                          [this](const command::CheckForUpdates&) { notify(upToDate); },
                          [](const command::RequestState&) {}},
               command);
    // The fans follow at once rather than at the next tick.
    control();
    publish();
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
    else if (notice)
        state.status = notice->text;
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
