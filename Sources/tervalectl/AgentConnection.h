#pragma once

#include "Profiles/Bridge.h"
#include "tervalectl/Context.h"

#include <QEventLoop>

#include <functional>
#include <memory>
#include <optional>

namespace tervale {

/// The menu-bar agent, asked and waited for. Main thread; runs the event loop while it waits.
class AgentConnection {
  public:
    /// Whether a state shows that a command was carried out.
    using Confirms = std::function<bool(const BridgeState&)>;

    /// The agent of the machine that the context makes. Throws `NoSuchMachine`.
    explicit AgentConnection(const Context& context);

    /// What the agent does now. Throws `Failure` if it does not answer.
    BridgeState state();
    /// Sends the command, once, and returns the state that confirms it. Throws `Failure` if the
    /// agent does not answer, and if it answers with other states.
    BridgeState carryOut(const BridgeCommand& command, Confirms confirms);

  private:
    Failure noAnswer() const;

    Machine machine;
    Bridge bridge;
    /// In seconds, for each answer.
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
