#pragma once

#include "TervaleWindow/Profiles/ProfilesDraft.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace tervale {

/// One step of a draft's history, a plain value: profiles that took the place of others in the
/// list, and which profile was selected before and after. To be taken back only from the draft that
/// it led to, and done again only to the one that it began with.
struct DraftStep {
    /// The index of the first profile of either.
    std::size_t place = 0;
    std::vector<Profile> before;
    std::vector<Profile> after;
    std::optional<UUID> selectedBefore;
    std::optional<UUID> selectedAfter;

    bool changesNothing() const { return before == after; }
    /// Whether it changes the content of one profile, on which no other one's problems depend.
    bool isEdit() const;
    void undo(ProfilesDraft& draft) const;
    void redo(ProfilesDraft& draft) const;
    /// Becomes one step with `next`, an edit of the same profile that came right after it.
    void append(const DraftStep& next);

    bool operator==(const DraftStep&) const = default;
};

/// The shortest step that leads from one to the other.
DraftStep stepBetween(const ProfilesDraft& before, const ProfilesDraft& after);

/// What an edit can go on with, such as one end of one time window.
struct EditTarget {
    enum class Part { name, point, start, end, speed };
    Part part = Part::name;
    /// Of the point or the time window.
    std::size_t index = 0;

    bool operator==(const EditTarget&) const = default;
};

/// Nothing for an edit that is always a step of its own. `edited` is the profile after the edit.
std::optional<EditTarget> targetOf(const ProfileEdit& edit, const Profile& edited);

/// What an edit can be the end of, though nothing goes on with itself: the removal of a point ends
/// the edits of that point, as a double click does. Nothing for any other edit.
std::optional<EditTarget> endedBy(const ProfileEdit& edit);

} // namespace tervale
