#pragma once

#include "Agent/CheckedPreferences.h"
#include "Profiles/Bridge.h"
#include "Profiles/Clock.h"
#include "Profiles/Preferences.h"
#include "Profiles/ProfileStore.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tervale {

/// What the agent keeps from one run to the next: the profiles, the selection and the login flag of
/// its state. What cannot be read stays stored until a person replaces it; what could not be stored
/// is written again. Main thread.
class AgentPreferences {
  public:
    enum class Unreadable : std::uint8_t { nothing, selection, profiles };

    /// Both outlive the object.
    AgentPreferences(Preferences& stored, const Clock& clock);

    /// Fills in what is stored, as far as it can be read, and the starter profiles for a user who
    /// never stored any. Those are yet to be stored.
    void takeUp(BridgeState& state);
    /// Writes and reads again what failed, if it is time to, and fills in what could be read.
    /// Whether the state may be another now.
    bool tryAgain(BridgeState& state);

    /// From now on the state's own counts, whatever is stored. Nothing is written yet.
    void changeSelection();
    void changeProfiles();
    void changeLaunchAtLogin();
    /// Writes what has changed, each thing once however often it did.
    void store(const BridgeState& state);

    /// Of several things the one that matters most.
    Unreadable unreadable() const;
    /// Keeps the profiles that cannot be read beside those that take their place: the name under
    /// which they lie then. Nothing if they cannot be kept.
    std::optional<std::string> keepUnreadableProfiles();
    /// Why something is not stored; nothing while everything is.
    const std::optional<std::string>& failure() const { return preferences.failure(); }

  private:
    void takeUpSelection(BridgeState& state);
    void takeUpProfiles(BridgeState& state);
    bool readAgain(BridgeState& state);

    const Clock& clock;
    CheckedPreferences preferences;
    ProfileStore profileStore;
    bool selectionChanged = false;
    bool profilesChanged = false;
    bool launchAtLoginChanged = false;
    /// Nothing was ever stored, and these may not be yet.
    bool offersStarters = false;
    bool selectionUnreadable = false;
    bool profilesUnreadable = false;
    Date nextReading;
};

/// Whether the state can be published with these profiles, whatever else it says.
bool canTell(BridgeState state, const std::vector<Profile>& profiles);

/// The same action; a fixed speed outside the fans' range means the nearer end of it.
Action withinRange(Action action);

} // namespace tervale
