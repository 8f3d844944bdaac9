#pragma once

#include "JSON/JSONForward.h"
#include "Profiles/Action.h"
#include "Profiles/Curve.h"
#include "Profiles/TemperatureInput.h"
#include "Profiles/UUID.h"

#include <cstdint>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace tervale {

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

/// A named rule that turns the machine's state into a fan speed. As JSON:
/// {"id":"…","name":"…","kind":{"load":{"_0":{"points":[{"x":0,"speed":0.1}]}}}}.
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

void write(JSONWriter& json, const Window& window);
void write(JSONWriter& json, const ProfileKind& kind);
void write(JSONWriter& json, const Profile& profile);
Window read(const JSONReader& json, Type<Window>);
ProfileKind read(const JSONReader& json, Type<ProfileKind>);
Profile read(const JSONReader& json, Type<Profile>);

} // namespace tervale
