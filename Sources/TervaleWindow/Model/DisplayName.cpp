#include "TervaleWindow/Model/DisplayName.h"

#include "Profiles/DisplayText.h"

#include <algorithm>

namespace tervale {

QString shortened(const QString& text, qsizetype most) {
    if (text.size() <= most)
        return text;
    qsizetype end = most - 1;
    // Not in the middle of a character.
    if (text.at(end - 1).isHighSurrogate())
        --end;
    return text.left(end) + QChar(u'…');
}

QString displayName(const Profile& profile) {
    if (profile.name.empty())
        return QStringLiteral("Untitled");
    QString name = shortened(QString::fromStdString(profile.name), longestName);
    std::replace_if(
        name.begin(), name.end(),
        [](QChar character) {
            return character == u'\n' || character == u'\r' || character == QChar::LineSeparator ||
                   character == QChar::ParagraphSeparator;
        },
        QChar(u' '));
    return name;
}

QString displayName(const Action& action, std::span<const Profile> profiles) {
    if (const auto* chosen = std::get_if<action::Profile>(&action)) {
        if (const Profile* profile = findProfile(profiles, chosen->id))
            return displayName(*profile);
    }
    return QString::fromStdString(displayText::nameOf(action, profiles));
}

} // namespace tervale
