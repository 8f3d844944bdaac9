#pragma once

#include "Profiles/Preferences.h"
#include "Profiles/Profile.h"

#include <vector>

namespace tervale {

/// The profiles and the selection in the user's preferences, each one JSON text under one key.
/// Errors are not reported: what is missing or cannot be read is the default, and what cannot be
/// encoded is not written. Keeps no state of its own.
class ProfileStore {
  public:
    static constexpr const char* profilesKey = "profiles";
    static constexpr const char* selectionKey = "selection";

    /// `defaults` outlives the store.
    explicit ProfileStore(Preferences& defaults) : defaults(defaults) {}

    /// Empty by default.
    std::vector<Profile> profiles() const;
    void setProfiles(const std::vector<Profile>& profiles);

    /// Automatic by default.
    Action selection() const;
    void setSelection(const Action& selection);

  private:
    Preferences& defaults;
};

} // namespace tervale
