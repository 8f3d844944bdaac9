#pragma once

#include "TervaleWindow/Profiles/ScheduleEditing.h"

#include <QString>

#include <span>
#include <vector>

namespace tervale {

/// One entry of the picker of what a window runs.
struct ScheduleTarget {
    QString title;
    ScheduleEditing::Choice choice;

    bool operator==(const ScheduleTarget&) const = default;
};

/// The profiles that a window may run, in their order. Schedules cannot be run, so they are left
/// out; but whatever is chosen already is in the list, be it that or a profile that is missing.
std::vector<ScheduleTarget> scheduleTargets(std::span<const Profile> profiles,
                                            const ScheduleEditing::Choice& chosen);

} // namespace tervale
