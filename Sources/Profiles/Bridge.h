#pragma once

#include "JSON/JSONForward.h"
#include "Profiles/Clock.h"
#include "Profiles/NotificationCenter.h"
#include "Profiles/Profile.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tervale {

namespace command {
/// Make this the active selection.
struct Select {
    Action action;
    bool operator==(const Select&) const = default;
};
/// Run the action for that many seconds.
struct StartTimer {
    Action action;
    double duration = 0;
    bool operator==(const StartTimer&) const = default;
};
/// Replace the stored profiles.
struct SaveProfiles {
    std::vector<Profile> profiles;
    bool operator==(const SaveProfiles&) const = default;
};
struct SetLaunchAtLogin {
    bool enabled = false;
    bool operator==(const SetLaunchAtLogin&) const = default;
};
/// End a running timer early.
struct CancelTimer {
    bool operator==(const CancelTimer&) const = default;
};
struct CheckForUpdates {
    bool operator==(const CheckForUpdates&) const = default;
};
/// Publish the state now.
struct RequestState {
    bool operator==(const RequestState&) const = default;
};
} // namespace command

/// What the window asks of the menu-bar agent.
using BridgeCommand = std::variant<command::Select, command::StartTimer, command::SaveProfiles,
                                   command::SetLaunchAtLogin, command::CancelTimer,
                                   command::CheckForUpdates, command::RequestState>;

/// What the menu-bar agent tells of itself; the only confirmation of a command.
struct BridgeState {
    Action selection;
    /// The action of a running timer.
    std::optional<Action> timerAction;
    std::optional<Date> timerEnds;
    /// One line for display.
    std::optional<std::string> status;
    bool launchAtLogin = false;
    std::vector<Profile> profiles;

    bool operator==(const BridgeState&) const = default;
};

void write(JSONWriter& json, const BridgeCommand& command);
void write(JSONWriter& json, const BridgeState& state);
BridgeCommand read(const JSONReader& json, Type<BridgeCommand>);
BridgeState read(const JSONReader& json, Type<BridgeState>);

/// The protocol between the window and the menu-bar agent: three notifications, two of them
/// carrying one JSON text. Fire and forget: a value that cannot be encoded, or to too long a text,
/// is not sent, and a text that does not decode or is too long reaches no handler. Handlers run on
/// the main thread; sending may be done from any.
class Bridge {
  public:
    static constexpr const char* commandName = "com.velnor.tervale.command";
    static constexpr const char* stateName = "com.velnor.tervale.state";
    static constexpr const char* quitName = "com.velnor.tervale.quit-window";

    /// The longest text, in bytes; many times that of a state with more profiles than people make.
    /// A longer one is not even read, so that no notification holds its receivers up.
    static constexpr std::size_t maximumTextSize = std::size_t{256} * 1024;
    /// The longest text, in bytes, of a list of profiles that commands and states carry, whatever
    /// else a state tells.
    static constexpr std::size_t maximumProfilesSize = maximumTextSize - std::size_t{2} * 1024;
    /// Whether a text is short enough to be sent.
    static bool fits(const BridgeCommand& command);
    static bool fits(const BridgeState& state);

    /// `center` outlives the bridge.
    explicit Bridge(NotificationCenter& center) : center(center) {}

    void send(const BridgeCommand& command);
    void publish(const BridgeState& state);
    void quitWindow();

    [[nodiscard]] ObserverToken onCommand(std::function<void(const BridgeCommand&)> handler);
    /// Of a command whose text is too long to be read.
    [[nodiscard]] ObserverToken onOverlongCommand(std::function<void()> handler);
    [[nodiscard]] ObserverToken onState(std::function<void(const BridgeState&)> handler);
    [[nodiscard]] ObserverToken onQuitWindow(std::function<void()> handler);
    /// See `NotificationCenter::observeChannel`.
    [[nodiscard]] ObserverToken onChannel(std::function<void(Channel)> handler);

  private:
    NotificationCenter& center;
};

} // namespace tervale
