#include "tervalectl/AgentConnection.h"

#include "Base/Precondition.h"
#include "Base/Terminal.h"
#include "Profiles/Bridge.h"
#include "Profiles/JSONCoding.h"
#include "tervalectl/Formatting.h"

#include <QString>
#include <QTimer>

#include <chrono>
#include <utility>

namespace tervale {

namespace {

std::chrono::milliseconds milliseconds(double seconds) {
    return std::chrono::milliseconds(roundedToInteger(seconds * 1000));
}

} // namespace

AgentConnection::AgentConnection(const Context& context)
    : machine(context.makeMachine()),
      bridge(*machine.notificationCenter),
      timeout(context.timeout),
      states(bridge.onState([this](const BridgeState& state) {
          if (!awaited || confirmed)
              return;
          latest = state;
          confirmed = awaited(state);
          if (confirmed)
              loop.quit();
      })) {}

BridgeState AgentConnection::state() {
    return carryOut(command::RequestState{}, [](const BridgeState&) { return true; });
}

BridgeState AgentConnection::carryOut(const BridgeCommand& command, Confirms confirms) {
    awaited = std::move(confirms);
    latest.reset();
    confirmed = false;
    QTimer patience;
    patience.setSingleShot(true);
    QObject::connect(&patience, &QTimer::timeout, &loop, &QEventLoop::quit);
    patience.start(milliseconds(timeout));
    // An agent that found nothing to change may have kept silent.
    QTimer reminder;
    reminder.setSingleShot(true);
    QObject::connect(&reminder, &QTimer::timeout, &loop,
                     [this] { bridge.send(command::RequestState{}); });
    reminder.start(milliseconds(timeout / 2));
    bridge.send(command);
    // An agent in this process may have answered already.
    if (!confirmed)
        loop.exec();
    awaited = nullptr;
    if (!latest)
        throw noAnswer();
    if (!confirmed)
        throw refusal("The agent did not take the command." +
                      (latest->status ? " Its status: " + *latest->status : std::string()));
    return *latest;
}

Failure AgentConnection::noAnswer() const {
    return {ExitStatus::noAnswer, "The agent in the menu bar did not answer within " +
                                      QString::number(timeout).toStdString() + " s."};
}

void printConfirmation(const BridgeState& state, Context& context) {
    if (context.json)
        printJSON(context.out, encode(state));
    else if (state.status)
        context.out << printable(*state.status) << '\n';
}

} // namespace tervale
