#include "tervalectl/AgentConnection.h"

#include "Base/Precondition.h"
#include "Base/Terminal.h"
#include "JSON/JSON.h"
#include "Profiles/Bridge.h"
#include "Profiles/StoringFailure.h"
#include "tervalectl/Formatting.h"
#include "tervalectl/StatusJudgement.h"

#include <QDateTime>
#include <QString>
#include <QTimer>

#include <chrono>
#include <cmath>
#include <utility>

namespace tervale {

namespace {

std::chrono::milliseconds milliseconds(double seconds) {
    return std::chrono::milliseconds(roundedToInteger(seconds * 1000));
}

/// Nothing for a year that ISO 8601 writes with more than four digits, or less than 0.
std::optional<std::string> isoDate(Date date) {
    constexpr double year0 = -62167219200;
    constexpr double year10000 = 253402300800;
    const double seconds = std::round(date.sinceReference + Date::referenceSinceUnixEpoch);
    if (!(seconds >= year0 && seconds < year10000))
        return std::nullopt;
    return QDateTime::fromSecsSinceEpoch(static_cast<qint64>(seconds), Qt::UTC)
        .toString(Qt::ISODate)
        .toStdString();
}

Failure sessionGone() {
    return {ExitStatus::noAnswer, "The way to the agent is gone: the session bus has ended."};
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
      })),
      channel(bridge.onChannel([this](Channel state) { follow(state); })) {
    patience.setSingleShot(true);
    patience.setInterval(milliseconds(timeout));
    QObject::connect(&patience, &QTimer::timeout, &loop, &QEventLoop::quit);
}

void AgentConnection::follow(Channel state) {
    lost = state == Channel::gone;
    if (!following) {
        loop.quit();
        return;
    }
    if (lost) {
        patience.start();
        return;
    }
    patience.stop();
    bridge.send(command::RequestState{});
}

BridgeState AgentConnection::state() {
    return perform(command::RequestState{}, [](const BridgeState&) { return true; });
}

BridgeState AgentConnection::perform(const BridgeCommand& command, Confirms confirms) {
    awaited = std::move(confirms);
    latest.reset();
    confirmed = false;
    patience.start();
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
    patience.stop();
    if (lost)
        throw sessionGone();
    if (!latest)
        throw noAnswer();
    if (!confirmed)
        throw refusal("The agent did not take the command." +
                      (latest->status ? " Its status: " + *latest->status : std::string()));
    return *latest;
}

void AgentConnection::follow(const std::function<bool(const BridgeState&)>& wantsMore) {
    if (!wantsMore(state()))
        return;
    confirmed = false;
    awaited = [&wantsMore](const BridgeState& state) { return !wantsMore(state); };
    following = true;
    loop.exec();
    following = false;
    awaited = nullptr;
    if (lost)
        throw sessionGone();
}

Failure AgentConnection::noAnswer() const {
    return {ExitStatus::noAnswer,
            "The agent did not answer within " + QString::number(timeout).toStdString() + " s."};
}

void writeOverrides(JSONWriter& json, const BridgeState& state) {
    json.member("selection", state.selection);
    json.optionalMember("timerAction", state.timerAction);
    json.optionalMember("timerEnds", state.timerEnds);
    if (state.timerEnds)
        json.optionalMember("timerEndsAt", isoDate(*state.timerEnds));
    json.optionalMember("status", state.status);
    json.member("safety", tellsSafety(state));
}

std::string stateJSON(const BridgeState& state) {
    JSONWriter json;
    json.object([&] {
        writeOverrides(json, state);
        json.member("launchAtLogin", state.launchAtLogin);
        json.member("profiles", state.profiles);
    });
    return std::move(json.text);
}

void printConfirmation(const BridgeState& state, Context& context) {
    if (context.json)
        printJSON(context.out, stateJSON(state));
    else if (state.status)
        context.out << printable(*state.status) << '\n';
}

void printStored(const BridgeState& state, Context& context) {
    if (tellsStoringFailure(state))
        throw refusal("The agent has taken the command, but: " + *state.status);
    printConfirmation(state, context);
}

} // namespace tervale
