#include "TervaleWindow/Profiles/ScheduleTargets.h"

#include "TervaleWindow/Model/DisplayName.h"

#include <algorithm>

namespace tervale {

std::vector<ScheduleTarget> scheduleTargets(std::span<const Profile> profiles,
                                            const ScheduleEditing::Choice& chosen) {
    std::vector<ScheduleTarget> targets;
    for (const Profile& profile : profiles) {
        const ScheduleEditing::Choice choice = choice::Profile{profile.id};
        if (choice == chosen || !std::holds_alternative<kind::Schedule>(profile.kind))
            targets.push_back({displayName(profile), choice});
    }
    const bool listed = std::any_of(targets.begin(), targets.end(),
                                    [&](const auto& target) { return target.choice == chosen; });
    if (std::holds_alternative<choice::Profile>(chosen) && !listed)
        targets.push_back({QStringLiteral("Missing profile"), chosen});
    return targets;
}

} // namespace tervale
