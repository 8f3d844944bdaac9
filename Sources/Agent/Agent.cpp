#include "Agent/Agent.h"

#include "Agent/StarterProfiles.h"
#include "Agent/UnreadableProfiles.h"
#include "Base/Overloaded.h"
#include "JSON/JSON.h"
#include "Profiles/StoringFailure.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace tervale {

namespace {

constexpr const char* launchAtLoginKey = "launchAtLogin";

constexpr const char* tooHot = "Too hot: Max until every CPU and GPU sensor is below 85 °C.";
constexpr const char* upToDate = "Tervale is up to date.";
constexpr const char* unreadableProfilesNotice =
    "The stored profiles cannot be read. They stay until you save others.";
constexpr const char* unreadableSelectionNotice =
    "The stored selection cannot be read. It stays until you select another.";
constexpr const char* unreadableNotKept =
    "Those profiles were not saved: the ones that cannot be read could not be kept beside them.";
constexpr const char* tooLong = "Those profiles were not saved: they are too long.";
constexpr const char* ended = "The agent has ended. The fans are automatic.";
constexpr const char* endedBadly = "The agent has ended. The fans could not be handed back.";
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

/// A controller that counts more keys than this is not to be believed.
constexpr double mostKeys = 65536;

bool holdsSafetyReading(const TemperatureReadings& readings) {
    return std::ranges::any_of(allTemperatureInputs, [&](TemperatureInput input) {
        return Controller::safetyInputs.contains(input) && readings.at(input);
    });
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

/// The error of the controller as people read it. The system's codes for a right that is missing
/// say nothing to them.
std::string forPeople(const std::string& error) {
    for (const char* code : {"0xe00002c1", "0xe00002e2"}) {
        if (error.find(code) != std::string::npos)
            return "This agent may not write to the controller. " + error;
    }
    return error;
}

/// Of a notice that is shown until the user does something.
constexpr Date untilDismissed{std::numeric_limits<double>::infinity()};

/// Whether a state with these profiles can be published, whatever else it says.
bool fits(BridgeState state, const std::vector<Profile>& profiles) {
    constexpr std::size_t longestStatus = 1024;
    state.profiles = profiles;
    state.status.emplace(longestStatus, ' ');
    return Bridge::fits(state);
}

} // namespace

Agent::Agent(Seams given)
    : seams(std::move(given)),
      bridge(seams.center),
      preferences(seams.preferences, seams.clock),
      store(preferences),
      fans(seams.smc),
      permission(seams.guard) {
    state.launchAtLogin = preferences.data(launchAtLoginKey) == dataOf("true");
    takeUpSelection();
    takeUpProfiles();
    tellUnreadable();
    commandObserver = bridge.onCommand([this](const BridgeCommand& command) { handle(command); });
    // Whoever was out of reach has missed what was published.
    channelObserver = bridge.onChannel([this](Channel channel) {
        if (channel == Channel::back)
            publish();
    });
    control();
    publish();
}

void Agent::takeUpSelection() {
    const auto selection = stored<Action>(preferences, ProfileStore::selectionKey);
    selectionUnreadable = !selection && preferences.contains(ProfileStore::selectionKey);
    if (selection)
        state.selection = withinRange(*selection);
}

void Agent::takeUpProfiles() {
    // The user who deleted every profile does not want the starters back.
    offersStarters = !preferences.contains(ProfileStore::profilesKey);
    if (offersStarters) {
        state.profiles = starterProfiles();
        store.setProfiles(state.profiles);
        return;
    }
    const auto profiles = stored<std::vector<Profile>>(preferences, ProfileStore::profilesKey);
    profilesUnreadable = !profiles || !fits(state, *profiles);
    state.profiles = profilesUnreadable ? std::vector<Profile>() : *profiles;
}

void Agent::tellUnreadable() {
    if (profilesUnreadable)
        notice = Notice{unreadableProfilesNotice, untilDismissed};
    else if (selectionUnreadable)
        notice = Notice{unreadableSelectionNotice, untilDismissed};
    nextReading = seams.clock.now() + CheckedPreferences::interval;
}

void Agent::retryStorage() {
    // Whatever has been stored there in the meantime is not the starters' to replace.
    if (offersStarters && preferences.isWaiting(ProfileStore::profilesKey) &&
        preferences.contains(ProfileStore::profilesKey)) {
        preferences.forget(ProfileStore::profilesKey);
        takeUpProfiles();
        tellUnreadable();
    }
    preferences.retry();
    readAgain();
}

void Agent::readAgain() {
    const Date now = seams.clock.now();
    const bool waits = now < nextReading && nextReading - now <= CheckedPreferences::interval;
    if (waits || !(profilesUnreadable || selectionUnreadable))
        return;
    nextReading = now + CheckedPreferences::interval;
    if (selectionUnreadable)
        takeUpSelection();
    // Starters are for who never stored anything.
    if (profilesUnreadable && preferences.contains(ProfileStore::profilesKey))
        takeUpProfiles();
    if (!profilesUnreadable && !selectionUnreadable && notice && notice->until == untilDismissed)
        notice.reset();
}

void Agent::tick() {
    retryStorage();
    // Of a clock that is set back the timer knows nothing.
    if (state.timerEnds &&
        (seams.clock.now() >= *state.timerEnds || seams.clock.steady() >= timerLimit))
        endTimer();
    permission.tick();
    control();
    if (state != published)
        publish();
}

void Agent::sleep() {
    permission.sleep();
    control();
}

void Agent::wake() {
    permission.wake();
    tick();
}

std::optional<std::string> Agent::end() {
    // A command that arrives now would take the fans again.
    commandObserver.reset();
    std::optional<std::string> error = fans.handBack();
    state.status = error ? endedBadly : ended;
    publish();
    return error;
}

void Agent::handle(const BridgeCommand& command) {
    std::visit(
        overloaded{[this](const command::Select& select) {
                       state.selection = withinRange(select.action);
                       selectionUnreadable = false;
                       notice.reset();
                       store.setSelection(state.selection);
                   },
                   [this](const command::StartTimer& timer) { startTimer(timer); },
                   [this](const command::SaveProfiles& save) { saveProfiles(save.profiles); },
                   [this](const command::SetLaunchAtLogin& set) {
                       state.launchAtLogin = set.enabled;
                       preferences.setData(launchAtLoginKey,
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

void Agent::saveProfiles(const std::vector<Profile>& profiles) {
    if (!fits(state, profiles)) {
        notify(tooLong);
        return;
    }
    notice.reset();
    // Keep what cannot be read, so that the user can repair it.
    if (profilesUnreadable) {
        const auto name = unreadableProfiles::keep(preferences, seams.clock.now());
        if (!name) {
            notify(unreadableNotKept);
            return;
        }
        profilesUnreadable = false;
        notify("The profiles that could not be read are kept as " + *name + ".");
    }
    state.profiles = profiles;
    offersStarters = false;
    store.setProfiles(state.profiles);
}

void Agent::startTimer(const command::StartTimer& timer) {
    // Not a number is refused as well.
    if (!(timer.duration > 0 && timer.duration <= longestTimer)) {
        notify(timerRefused);
        return;
    }
    state.timerAction = withinRange(timer.action);
    state.timerEnds = seams.clock.now() + timer.duration;
    timerLimit = seams.clock.steady() + timer.duration;
    notice.reset();
}

void Agent::endTimer() {
    state.timerAction.reset();
    state.timerEnds.reset();
}

void Agent::notify(std::string text) {
    notice = Notice{std::move(text), seams.clock.now() + noticeDuration};
}

void Agent::control() {
    const Target wanted = evaluate();
    const Target target = permission.grant(wanted, controller.safetyEngaged());
    const std::optional<std::string> error = fans.apply(target);
    if (notice && seams.clock.now() >= notice->until)
        notice.reset();
    state.status = statusOf(error);
}

std::optional<std::string> Agent::statusOf(const std::optional<std::string>& error) const {
    std::optional<std::string> text;
    if (controller.safetyEngaged())
        text = tooHot;
    else if (error)
        text = forPeople(*error);
    else if (permission.reason())
        text = permission.reason();
    else if (notice)
        text = notice->text;
    else
        text = seams.remark;
    // Whoever saves something must learn of this whatever else there is to tell.
    if (const auto& reason = preferences.failure())
        text = (text ? *text + ' ' : std::string()) + storingFailure(*reason);
    return text;
}

Target Agent::evaluate() {
    const Action action = state.timerAction.value_or(state.selection);
    Inputs inputs;
    inputs.minuteOfDay = seams.clock.minuteOfDay();
    const Needs needs = Controller::needs(action, state.profiles, inputs.minuteOfDay);
    findSensors();
    if (sampler)
        inputs.temperatures = sampler->sample(needs.temperatures, seams.clock.now());
    if (holdsSafetyReading(inputs.temperatures))
        permission.noteReading();
    if (needs.load && seams.load)
        inputs.load = seams.load();
    return controller.target(action, state.profiles, inputs);
}

void Agent::findSensors() {
    if (sampler)
        return;
    try {
        // What is no count of keys would stop the process, or keep it busy for ever.
        const double keys = seams.smc.read("#KEY");
        if (!(keys > -1 && keys <= mostKeys))
            return;
        const auto sensors = seams.smc.temperatureSensors();
        // A controller that has keys but answers for none of them may do so later.
        if (sensors.empty())
            return;
        sampler.emplace(sensors, [this](const TemperatureSensor& sensor) {
            return seams.smc.temperature(sensor);
        });
    } catch (const SMCError&) {
        // Without a list of keys there is nothing to sample; the next tick tries again.
    }
}

void Agent::publish() {
    published = state;
    bridge.publish(state);
}

} // namespace tervale
