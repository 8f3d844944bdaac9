#include "TervaleWindow/Profiles/ScheduleTargets.h"

#include <algorithm>

namespace tervale {

QString displayName(const Profile& profile) {
    if (profile.name.empty())
        return QStringLiteral("Untitled");
    QString name = QString::fromStdString(profile.name);
    for (QChar& character : name) {
        if (character == u'\n' || character == u'\r' || character == QChar::LineSeparator ||
            character == QChar::ParagraphSeparator)
            character = u' ';
    }
    return name;
}

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
