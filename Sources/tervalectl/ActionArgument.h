#pragma once

#include "Profiles/Profile.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace tervale {

/// A profile that someone names.
struct ProfileReference {
    /// Its id, or its name letter for letter.
    std::string text;

    bool operator==(const ProfileReference&) const = default;
};

/// An action as people type it: "automatic", "max", "40%", "profile Quiet".
using ActionArgument = std::variant<Action, ProfileReference>;

/// Nothing for a text that is no action.
std::optional<ActionArgument> parseAction(std::string_view text);
/// The same, and an action's JSON.
std::optional<ActionArgument> parseActionOrJSON(std::string_view text);

/// The profile that the reference means among these. Throws `Failure` if none, or several, of them
/// is the one named.
const Profile& find(const ProfileReference& reference, std::span<const Profile> profiles);

/// The action that the text means among these profiles. Throws as `find` does.
Action resolve(const ActionArgument& text, std::span<const Profile> profiles);

} // namespace tervale
