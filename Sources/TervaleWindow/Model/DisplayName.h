#pragma once

#include "Profiles/Profile.h"

#include <QString>

#include <span>

namespace tervale {

/// The most characters of a profile's name that are ever shown.
inline constexpr qsizetype longestName = 300;

/// The most characters of the agent's status that are ever shown.
inline constexpr qsizetype longestStatus = 1000;

/// A text that is cut after so many characters, the last of which is an ellipsis then.
QString shortened(const QString& text, qsizetype most);

/// A profile's name as people read it: on one line, no longer than `longestName`, or "Untitled".
QString displayName(const Profile& profile);

/// An action's name as people read it; `profiles` are those that it may name.
QString displayName(const Action& action, std::span<const Profile> profiles);

} // namespace tervale
