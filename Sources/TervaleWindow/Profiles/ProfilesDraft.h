#pragma once

#include "TervaleWindow/Profiles/ProfileEdit.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tervale {

/// The working copy of the agent's profiles, and which of them is being edited: a plain
/// value, which knows no toolkit and tells nobody. `DraftOwner` holds the one that the pane edits.
///
/// At first it is not loaded. Once it has been loaded it is clean while it equals the agent's list,
/// and then follows that; edited, it keeps what the user did until the agent's list equals it, or
/// until it is reverted.
struct ProfilesDraft {
    std::vector<Profile> profiles;
    /// May name a profile that is no longer there.
    std::optional<UUID> selection;
    bool loaded = false;
    /// The agent's list as it was last heard.
    std::vector<Profile> saved;

    bool canRevert() const { return loaded && profiles != saved; }
    /// The first profile with the selected id, or null.
    const Profile* selected() const;

    /// Appends a profile and selects it. One that has the name already makes it "Name 2", "Name 3"
    /// and so on.
    void add(const std::string& name, const ProfileKind& kind);
    /// Appends a copy of the selected profile and selects it.
    void duplicate();
    /// Removes the selected profile and selects the next, or else the last.
    void remove();
    /// Edits the first profile with the selected id, in its place. Gives its index if it
    /// changed.
    std::optional<std::size_t> perform(const ProfileEdit& edit);
    void revert();

    /// What the agent's list is to the draft: one that this draft sent to be saved, or any other.
    enum class Origin { elsewhere, savedFromHere };

    /// To be called when the draft is first shown and whenever the agent's state changed; `list` is
    /// the agent's. Unsaved edits stay as they are, and so does all that was done, undone or
    /// reverted while a save was under way: it is an edit of the list that was saved.
    void follow(bool connected, const std::vector<Profile>& list,
                Origin origin = Origin::elsewhere);

    bool operator==(const ProfilesDraft&) const = default;

  private:
    void syncFromModel(bool connected);
    std::string freeName(const std::string& name) const;
};

} // namespace tervale
