#pragma once

#include "Profiles/Bridge.h"
#include "tervalectl/Context.h"

#include <QEventLoop>

#include <functional>
#include <optional>

namespace tervale {

/// The menu-bar agent, asked and waited for. Main thread; runs the event loop while it waits.
class Agent {
  public:
    /// Whether a state shows that a command was carried out.
    using Confirms = std::function<bool(const BridgeState&)>;

    /// `center` outlives the object. `timeout` in seconds, for each call below.
    Agent(NotificationCenter& center, double timeout);

    /// What the agent does now. Throws `Failure` if it does not answer.
    BridgeState state();
    /// Sends the command, once, and returns the state that confirms it. Throws `Failure` if the
    /// agent does not answer, and if it answers with other states.
    BridgeState carryOut(const BridgeCommand& command, Confirms confirms);

  private:
    Failure noAnswer() const;

    Bridge bridge;
    double timeout;
    Confirms awaited;
    std::optional<BridgeState> latest;
    bool confirmed = false;
    QEventLoop loop;
    ObserverToken states;
};

/// Prints the state that confirms a command: what its status says, or all of it as JSON.
void printConfirmation(const BridgeState& state, Context& context);

} // namespace tervale
