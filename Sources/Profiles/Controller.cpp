#include "Profiles/Controller.h"

#include "Base/Overloaded.h"

#include <cmath>

namespace tervale {

namespace {

/// A reading that is no number counts as absent, so that it cannot hide the other sensor's.
std::optional<double> hottestOf(const TemperatureReadings& readings) {
    std::optional<double> hottest;
    for (const TemperatureInput input : allTemperatureInputs) {
        if (!Controller::safetyInputs.contains(input))
            continue;
        if (const std::optional<double> reading = readings.at(input))
            hottest = hottest ? std::fmax(*hottest, *reading) : *reading;
    }
    return hottest;
}

} // namespace

Needs Controller::needs(const Action& action, std::span<const Profile> profiles, int minute) {
    Needs needs{safetyInputs, false};
    std::visit(overloaded{
                   [](const Resolved::Fixed&) {},
                   [&](const Resolved::Temperature& resolved) {
                       needs.temperatures.insert(resolved.input);
                   },
                   [&](const Resolved::Load&) { needs.load = true; },
                   [](const Resolved::Automatic&) {},
               },
               resolve(action, profiles, minute, 0).value);
    return needs;
}

Controller::Resolved Controller::resolve(const Action& action, std::span<const Profile> profiles,
                                         int minute, int depth) {
    const auto resolveSchedule = [&](const kind::Schedule& schedule) -> Resolved {
        if (depth != 0)
            return {Resolved::Automatic{}};
        for (const Window& window : schedule.windows) {
            if (window.covers(minute))
                return resolve(window.action, profiles, minute, 1);
        }
        return {Resolved::Automatic{}};
    };
    const auto resolveProfile = [&](const action::Profile& selected) -> Resolved {
        const Profile* profile = findProfile(profiles, selected.id);
        if (!profile)
            return {Resolved::Automatic{}};
        return std::visit(
            overloaded{
                [](const kind::Temperature& found) -> Resolved {
                    return {Resolved::Temperature{found.input, found.curve}};
                },
                [](const kind::Load& found) -> Resolved { return {Resolved::Load{found.curve}}; },
                resolveSchedule,
            },
            profile->kind);
    };
    return std::visit(
        overloaded{
            [](const action::Automatic&) -> Resolved { return {Resolved::Automatic{}}; },
            [](const action::Fixed& fixed) -> Resolved { return {Resolved::Fixed{fixed.speed}}; },
            resolveProfile,
        },
        action);
}

Target Controller::target(const Action& action, std::span<const Profile> profiles,
                          const Inputs& inputs) {
    if (latch.update(hottestOf(inputs.temperatures)))
        return target::Speed{1.0};
    const auto follow = [](const Curve& curve, std::optional<double> reading,
                           Hysteresis& hysteresis) -> Target {
        if (!reading)
            return target::Automatic{};
        return target::Speed{curve.speed(hysteresis.filter(*reading))};
    };
    return std::visit(
        overloaded{
            [](const Resolved::Fixed& fixed) -> Target { return target::Speed{fixed.speed}; },
            [&](const Resolved::Temperature& resolved) {
                return follow(resolved.curve, inputs.temperatures.at(resolved.input), temperature);
            },
            [&](const Resolved::Load& resolved) {
                return follow(resolved.curve, inputs.load, load);
            },
            [](const Resolved::Automatic&) -> Target { return target::Automatic{}; },
        },
        resolve(action, profiles, inputs.minuteOfDay, 0).value);
}

} // namespace tervale
