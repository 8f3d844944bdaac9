#pragma once

#include "TervaleWindow/Profiles/CurveEdit.h"
#include "TervaleWindow/Profiles/ScheduleEditing.h"

#include <string>
#include <variant>

namespace tervale {

namespace profileEdit {
struct Rename {
    std::string name;
    bool operator==(const Rename&) const = default;
};
/// A temperature curve follows another reading.
struct FollowInput {
    TemperatureInput input;
    bool operator==(const FollowInput&) const = default;
};
} // namespace profileEdit

/// What is to be done to one profile. An edit that does not fit the profile's kind is a programming
/// error.
using ProfileEdit =
    std::variant<profileEdit::Rename, profileEdit::FollowInput, CurveEdit, WindowEdit>;

/// True if the profile changed.
bool perform(const ProfileEdit& edit, Profile& profile);

/// The curve of a temperature or load profile, or null.
const Curve* curveOf(const Profile& profile);

} // namespace tervale
