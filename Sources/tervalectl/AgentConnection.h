#pragma once

#include "JSON/JSONWriter.h"
#include "Profiles/Bridge.h"
#include "tervalectl/Context.h"

#include <QEventLoop>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

namespace tervale {

/// Sends commands to the agent and waits for its answers. Main thread; runs the event loop
/// while it waits.
class AgentConnection {
  public:
    /// Whether a state shows that a command was performed.
    using Confirms = std::function<bool(const BridgeState&)>;

    /// The agent of the machine that the context makes. Throws `NoSuchMachine`.
    explicit AgentConnection(const Context& context);

    /// The agent's state. Throws `Failure` if it does not answer.
    BridgeState state();
    /// Sends the command, once, and returns the state that confirms it. Throws `Failure` if the
    /// agent does not answer, and if it answers with other states.
    BridgeState perform(const BridgeCommand& command, Confirms confirms);

    /// Calls `wantsMore` with the agent's state and with each state that it publishes, until it
    /// returns false. Throws `Failure` if the agent does not answer at first.
    void follow(const std::function<bool(const BridgeState&)>& wantsMore);

  private:
    Failure noAnswer() const;
    void follow(Channel channel);

    Machine machine;
    Bridge bridge;
    /// In seconds, for each answer.
    double timeout;
    Confirms awaited;
    std::optional<BridgeState> latest;
    bool confirmed = false;
    /// The way to the agent is gone.
    bool lost = false;
    /// Following goes on after the way was gone for less than the timeout.
    bool following = false;
    QTimer patience;
    QEventLoop loop;
    ObserverToken states;
    ObserverToken channel;
};

/// What is in force, and for how long, as the agent publishes it. "timerEndsAt" is the same as
/// "timerEnds", in ISO 8601 and UTC; absent for a date beyond the calendar. "safety" tells whether
/// the latch is engaged.
void writeOverrides(JSONWriter& json, const BridgeState& state);

/// The same, and the rest of the state.
std::string stateJSON(const BridgeState& state);

/// Prints the state that confirms a command: what its status says, or all of it as JSON.
void printConfirmation(const BridgeState& state, Context& context);

/// The same for a command that has the agent store something. Throws `Failure` if it could not.
void printStored(const BridgeState& state, Context& context);

} // namespace tervale
