#pragma once

#include "Profiles/Profile.h"
#include "TervaleWindow/Profiles/ProfileDefaults.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tervale {

/// The id that a test knows by this number, up to 65535.
inline UUID idOf(int number) {
    UUID id;
    id.bytes[14] = static_cast<std::uint8_t>(number / 256);
    id.bytes[15] = static_cast<std::uint8_t>(number % 256);
    return id;
}

inline Profile temperatureProfile(int number, const std::string& name) {
    return {idOf(number), name,
            kind::Temperature{{SensorGroup::cpu, true}, ProfileDefaults::temperatureCurve()}};
}
inline Profile loadProfile(int number, const std::string& name) {
    return {idOf(number), name, kind::Load{ProfileDefaults::loadCurve()}};
}
/// From 23:00 to 07:00.
inline Profile scheduleProfile(int number, const std::string& name, const Action& action) {
    return {idOf(number), name, kind::Schedule{{{1380, 420, action}}}};
}

/// One of each kind; the schedule runs the second.
inline const std::vector<Profile> threeProfiles{
    temperatureProfile(1, "Warm"), loadProfile(2, "Busy"),
    scheduleProfile(3, "Night", action::Profile{idOf(2)})};

/// Three load curves.
inline const std::vector<Profile> oneTwoThree{loadProfile(1, "One"), loadProfile(2, "Two"),
                                              loadProfile(3, "Three")};

} // namespace tervale
