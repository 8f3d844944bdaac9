#pragma once

#include "Base/Overloaded.h"
#include "Profiles/UUID.h"
#include "SMC/Sensors.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace tervale {

/// Which temperature feeds a temperature curve: a group's hottest sensor or the mean of its
/// sensors.
struct TemperatureInput {
    SensorGroup group = SensorGroup::cpu;
    bool average = false;

    static constexpr TemperatureInput hottestOf(SensorGroup group) { return {group, false}; }
    static constexpr TemperatureInput averageOf(SensorGroup group) { return {group, true}; }
    /// The input that stands for the group where one number is shown for it.
    static constexpr TemperatureInput headline(SensorGroup group) {
        return {group, averaged(group)};
    }
    /// Whether the group's natural single reading is its mean: so for CPU and GPU.
    static constexpr bool averaged(SensorGroup group) {
        return group == SensorGroup::cpu || group == SensorGroup::gpu;
    }

    /// The input's name for people, such as "CPU average".
    std::string title() const;

    bool operator==(const TemperatureInput&) const = default;
};

/// One knot of a curve.
struct CurvePoint {
    /// Degrees Celsius (valid 0 to 120) or percent load (valid 0 to 100).
    double x = 0;
    /// Fraction of the fan's range (valid 0 to 1).
    double speed = 0;

    bool operator==(const CurvePoint&) const = default;
};

/// Fan speed as a function of one reading: straight between its points, flat outside them.
struct Curve {
    /// In the order the user placed them.
    std::vector<CurvePoint> points;

    /// The speed at `x`, as a fraction. Takes any list of points; never clamps.
    double speed(double x) const;

    bool operator==(const Curve&) const = default;
};

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

/// One time window of a schedule, in minutes of the day. One whose end is not after its start
/// crosses midnight.
struct Window {
    /// The first minute that the window covers.
    std::int64_t start = 0;
    /// The first minute that it no longer covers.
    std::int64_t end = 0;
    Action action;

    bool covers(std::int64_t minute) const;

    bool operator==(const Window&) const = default;
};

namespace kind {
/// The curve at the temperature that the input names, in degrees Celsius.
struct Temperature {
    TemperatureInput input;
    Curve curve;
    bool operator==(const Temperature&) const = default;
};
/// The curve at the processor's load, in percent.
struct Load {
    Curve curve;
    bool operator==(const Load&) const = default;
};
/// The action of the first window that covers the current minute of the day.
struct Schedule {
    std::vector<Window> windows;
    bool operator==(const Schedule&) const = default;
};
} // namespace kind

using ProfileKind = std::variant<kind::Temperature, kind::Load, kind::Schedule>;

/// A named rule that turns the machine's state into a fan speed.
struct Profile {
    /// The most points that a curve may have; the fewest are 2.
    static constexpr int maxPoints = 8;
    static constexpr int minutesPerDay = 1440;

    UUID id;
    std::string name;
    ProfileKind kind;

    bool operator==(const Profile&) const = default;
};

/// The first profile with this id, or null.
const Profile* findProfile(std::span<const Profile> profiles, const UUID& id);

} // namespace tervale

template <>
struct std::hash<tervale::TemperatureInput> {
    std::size_t operator()(const tervale::TemperatureInput& input) const noexcept;
};

template <>
struct std::hash<tervale::Action> {
    std::size_t operator()(const tervale::Action& action) const noexcept;
};
