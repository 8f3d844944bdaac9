#pragma once

#include "JSON/JSONForward.h"
#include "Profiles/UUID.h"

#include <cstddef>
#include <functional>
#include <variant>

namespace tervale {

namespace action {
/// The fans are left to the system's own control.
struct Automatic {
    bool operator==(const Automatic&) const = default;
};
/// The fans are held at a fraction of their range.
struct Fixed {
    double speed = 0;
    bool operator==(const Fixed&) const = default;
};
/// The fans follow the profile with this id.
struct Profile {
    UUID id;
    bool operator==(const Profile&) const = default;
};
} // namespace action

/// What runs: the user's choice, or what a schedule's window asks for.
using Action = std::variant<action::Automatic, action::Fixed, action::Profile>;

void write(JSONWriter& json, const Action& action);
Action read(const JSONReader& json, Type<Action>);

} // namespace tervale

template <>
struct std::hash<tervale::Action> {
    std::size_t operator()(const tervale::Action& action) const noexcept;
};
