#include "Agent/Agent.h"

#include "Base/Overloaded.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>
#include <variant>

namespace tervale {

namespace {

constexpr const char* upToDate = "Tervale is up to date.";
constexpr const char* unreadableProfilesNotice =
    "The stored profiles cannot be read. They stay until you save others.";
constexpr const char* unreadableSelectionNotice =
    "The stored selection cannot be read. It stays until you select another.";
constexpr const char* unreadableNotKept =
    "Those profiles were not saved: the ones that cannot be read could not be kept beside them.";
constexpr const char* tooLong = "Those profiles were not saved: they are too long.";
constexpr const char* overlongCommand = "A command was not taken: it is too long.";
constexpr const char* timerRefused = "That timer was not set: it must end within 24 hours.";

/// In the order of the alternatives.
constexpr std::array commandNames{"select",           "startTimer",  "saveProfiles",
                                  "setLaunchAtLogin", "cancelTimer", "checkForUpdates",
                                  "requestState"};
static_assert(commandNames.size() == std::variant_size_v<BridgeCommand>);

/// Of a notice that is shown until the user does something.
constexpr double untilDismissed = std::numeric_limits<double>::infinity();

bool holdsSafetyReading(const TemperatureReadings& readings) {
    return std::ranges::any_of(allTemperatureInputs, [&](TemperatureInput input) {
        return Controller::safetyInputs.contains(input) && readings.at(input);
    });
}

std::string textOf(const Target& target) {
    return std::visit(overloaded{[](const target::Automatic&) { return std::string("automatic"); },
                                 [](const target::Speed& speed) {
                                     return std::to_string(std::lround(speed.fraction * 100)) + "%";
                                 }},
                      target);
}

} // namespace

Agent::Agent(Seams given)
    : seams(std::move(given)),
      bridge(seams.center),
      preferences(seams.preferences, seams.clock),
      search(seams.smc),
      fans(seams.smc, seams.writing),
      permission(seams.guard),
      status(seams.writing) {
    preferences.takeUp(state);
    tellUnreadable();
    commandObserver = bridge.onCommand([this](const BridgeCommand& command) { receive(command); });
    overlongObserver = bridge.onOverlongCommand([this] { refuseOverlong(); });
    channelObserver = bridge.onChannel([this](Channel channel) {
        // Whoever was out of reach has missed what was published.
        if (channel == Channel::back)
            publish();
    });
    if (seams.reach)
        unreached = seams.reach();
    control();
    store();
    tellStatus();
    publish();
}

void Agent::tick() {
    if (over)
        return;
    confirming = false;
    // By the steady clock as well: a wall clock that is set back must not make a timer longer.
    if (state.timerEnds &&
        (seams.clock.now() >= *state.timerEnds || seams.clock.steady() >= timerLimit))
        endTimer();
    if (unreached)
        unreached = seams.reach();
    permission.tick();
    control();
    // A disk takes its time, and may take all of it: the fans come before.
    store();
    const auto unreadable = preferences.unreadable();
    if (preferences.tryAgain(state))
        control();
    if (preferences.unreadable() != unreadable)
        tellUnreadable();
    tellStatus();
    if (std::exchange(unanswered, false) || state != published)
        publish();
}

bool Agent::sleep() {
    if (over)
        return !fans.holds();
    permission.sleep();
    control();
    tellStatus();
    return !fans.holds();
}

void Agent::wake() {
    if (over)
        return;
    permission.wake();
    tick();
}

std::optional<std::string> Agent::end() {
    const std::optional<std::string> error = giveWay();
    using Ending = AgentStatus::Ending;
    state.status = status.farewell(unreached ? Ending::unreached
                                   : error   ? Ending::failed
                                             : Ending::handedBack);
    publish();
    return error;
}

std::optional<std::string> Agent::giveWay() {
    over = true;
    // A command that arrives now would take the fans again.
    commandObserver.reset();
    overlongObserver.reset();
    channelObserver.reset();
    std::optional<std::string> error = unreached ? std::nullopt : fans.handBack();
    // What has arrived by now is kept, however long the disk takes.
    store();
    unanswered = false;
    return error;
}

void Agent::receive(const BridgeCommand& command) {
    trace(std::string("Command: ") + commandNames.at(command.index()));
    if (std::holds_alternative<command::RequestState>(command)) {
        // Whoever only reads does not wait for what arrives behind him to be stored.
        if (!confirming)
            publish();
        else
            unanswered = true;
    } else {
        perform(command);
        unanswered = true;
        unconfirmed = true;
    }
    confirmSoon();
}

void Agent::refuseOverlong() {
    trace("A command was too long to be read.");
    notify(overlongCommand);
    unanswered = true;
    unconfirmed = true;
    confirmSoon();
}

void Agent::confirmSoon() {
    if (std::exchange(confirming, true))
        return;
    if (seams.later)
        seams.later([this] { confirm(); });
    else
        confirm();
}

void Agent::confirm() {
    confirming = false;
    if (unconfirmed) {
        // The fans follow at once rather than at the next tick, and before the disk.
        control();
        store();
        tellStatus();
    }
    if (std::exchange(unanswered, false))
        publish();
}

void Agent::store() {
    unconfirmed = false;
    preferences.store(state);
}

void Agent::perform(const BridgeCommand& command) {
    std::visit(
        overloaded{[this](const command::Select& select) {
                       state.selection = withinRange(select.action);
                       notice.reset();
                       preferences.changeSelection();
                   },
                   [this](const command::StartTimer& timer) { startTimer(timer); },
                   [this](const command::SaveProfiles& save) { saveProfiles(save.profiles); },
                   [this](const command::SetLaunchAtLogin& set) { setLaunchAtLogin(set.enabled); },
                   [this](const command::CancelTimer&) { endTimer(); },
                   [this](const command::CheckForUpdates&) { notify(upToDate); },
                   [](const command::RequestState&) {}},
        command);
}

void Agent::saveProfiles(const std::vector<Profile>& profiles) {
    if (!canTell(state, profiles)) {
        notify(tooLong);
        return;
    }
    notice.reset();
    // Keep what cannot be read, so that the user can repair it.
    if (preferences.unreadable() == AgentPreferences::Unreadable::profiles) {
        // What has arrived before this drives the fans while the disk takes its time.
        control();
        const auto name = preferences.keepUnreadableProfiles();
        if (!name) {
            notify(unreadableNotKept);
            return;
        }
        notify("The profiles that could not be read are kept as " + *name + ".");
    }
    state.profiles = profiles;
    preferences.changeProfiles();
}

void Agent::setLaunchAtLogin(bool enabled) {
    const auto refusal = seams.loginItem ? seams.loginItem(enabled) : std::nullopt;
    if (refusal) {
        notify(std::string("Starting at login could not be turned ") +
               (enabled ? "on: " : "off: ") + *refusal);
        return;
    }
    state.launchAtLogin = enabled;
    preferences.changeLaunchAtLogin();
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
    notice = Notice{std::move(text), seams.clock.steady() + noticeDuration};
}

void Agent::tellUnreadable() {
    switch (preferences.unreadable()) {
    case AgentPreferences::Unreadable::profiles:
        notice = Notice{unreadableProfilesNotice, untilDismissed};
        break;
    case AgentPreferences::Unreadable::selection:
        notice = Notice{unreadableSelectionNotice, untilDismissed};
        break;
    case AgentPreferences::Unreadable::nothing:
        if (notice && notice->until == untilDismissed)
            notice.reset();
    }
}

void Agent::control() {
    failure = unreached ? std::nullopt : drive();
}

void Agent::tellStatus() {
    if (notice && seams.clock.steady() >= notice->until)
        notice.reset();
    state.status = status.text({.unreached = unreached,
                                .error = failure,
                                .refusal = permission.refusal(),
                                .tooHot = controller.safetyEngaged() && !permission.sleeps(),
                                .notice = notice ? std::optional(notice->text) : std::nullopt,
                                .notStored = preferences.failure()});
}

std::optional<std::string> Agent::drive() {
    const Target wanted = evaluate();
    const Target target = permission.grant(wanted, controller.safetyEngaged());
    std::optional<std::string> error = fans.apply(target);
    if (target != traced) {
        traced = target;
        trace("Fans: " + textOf(target));
    }
    return error;
}

Target Agent::evaluate() {
    const Action action = state.timerAction.value_or(state.selection);
    Inputs inputs;
    inputs.minuteOfDay = seams.clock.minuteOfDay();
    const Needs needs = Controller::needs(action, state.profiles, inputs.minuteOfDay);
    takeUpSensors();
    // By the steady clock: one that is set back would keep a sampler from reading all sensors for
    // as long as that.
    if (sampler)
        inputs.temperatures = sampler->sample(needs.temperatures, Date{seams.clock.steady()});
    if (holdsSafetyReading(inputs.temperatures))
        permission.noteReading();
    if (needs.load && seams.load)
        inputs.load = seams.load();
    return controller.target(action, state.profiles, inputs);
}

void Agent::takeUpSensors() {
    // A sampler's list is fixed; a new one reads all of its sensors first.
    if (search.turn())
        sampler.emplace(search.sensors(), [this](const TemperatureSensor& sensor) {
            return seams.smc.temperature(sensor);
        });
}

void Agent::publish() {
    published = state;
    bridge.publish(state);
    trace("The state was posted.");
}

void Agent::trace(const std::string& line) const {
    if (seams.trace)
        seams.trace(line);
}

} // namespace tervale
