#include "tervalectl/AgentCommands.h"

#include "JSON/JSON.h"
#include "Profiles/Bridge.h"
#include "Profiles/DisplayText.h"
#include "tervalectl/AgentConnection.h"
#include "tervalectl/Formatting.h"
#include "tervalectl/StatusJudgement.h"

#include <QDateTime>
#include <QString>

#include <algorithm>
#include <cmath>

namespace tervale {

namespace {

/// Local time; nothing for a date beyond what a calendar holds.
std::string localTime(Date date) {
    const double milliseconds = (date.sinceReference + Date::referenceSinceUnixEpoch) * 1000;
    if (!(std::abs(milliseconds) < 1e15))
        return {};
    return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(milliseconds))
        .toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"))
        .toStdString();
}

std::string timerText(const BridgeState& state) {
    if (!state.timerAction)
        return "none";
    const std::string name = displayText::nameOf(*state.timerAction, state.profiles);
    const std::string end = state.timerEnds ? localTime(*state.timerEnds) : std::string();
    return end.empty() ? name : name + " until " + end;
}

void printState(const BridgeState& state, Context& context) {
    if (context.json) {
        printJSON(context.out, stateJSON(state));
        return;
    }
    Table table({{"STATE"}, {"VALUE"}});
    table.add({"Selection", displayText::nameOf(state.selection, state.profiles)});
    table.add({"Timer", timerText(state)});
    table.add({"Status", state.status.value_or("")});
    table.add({"Launch at login", state.launchAtLogin ? "on" : "off"});
    table.add({"Profiles", std::to_string(state.profiles.size())});
    table.print(context.out);
}

/// The cells of a state's line.
Table::Row summary(const BridgeState& state) {
    return {displayText::nameOf(state.selection, state.profiles), timerText(state),
            tellsSafety(state) ? "engaged" : "", state.status.value_or("")};
}

/// One line for each state that differs from the one before it, each as soon as it is known.
void follow(AgentConnection& agent, std::optional<std::int64_t> count, Context& context) {
    const Table table({{"TIME", Table::Alignment::left, 19},
                       {"SELECTION", Table::Alignment::left, 16},
                       {"TIMER", Table::Alignment::left, 36},
                       {"SAFETY", Table::Alignment::left, 7},
                       {"STATUS"}});
    if (!context.json)
        table.printTitles(context.out);
    std::optional<BridgeState> shown;
    std::int64_t lines = 0;
    agent.follow([&](const BridgeState& state) {
        if (count && lines >= *count)
            return false;
        const bool isNews =
            !shown || (context.json ? state != *shown : summary(state) != summary(*shown));
        if (!isNews)
            return true;
        shown = state;
        if (context.json) {
            printJSON(context.out, stateJSON(state));
        } else {
            Table::Row row = summary(state);
            row.insert(row.begin(), localTime(context.clock.now()));
            table.print(context.out, row);
        }
        context.out.flush();
        ++lines;
        return context.out.good() && lines != count;
    });
}

/// The action that a text means to this agent, which is asked only if the text names a profile.
Action resolve(const ActionArgument& text, AgentConnection& agent) {
    if (std::holds_alternative<Action>(text))
        return std::get<Action>(text);
    return resolve(text, agent.state().profiles);
}

ExitStatus perform(const BridgeCommand& command, AgentConnection::Confirms confirms,
                   Context& context) {
    printConfirmation(AgentConnection(context).perform(command, std::move(confirms)), context);
    return ExitStatus::done;
}

} // namespace

ExitStatus perform(const ctl::State& command, Context& context) {
    AgentConnection agent(context);
    if (command.follow)
        follow(agent, command.count, context);
    else
        printState(agent.state(), context);
    return ExitStatus::done;
}

ExitStatus perform(const ctl::Select& command, Context& context) {
    AgentConnection agent(context);
    const Action action = resolve(command.action, agent);
    const auto confirms = [&](const BridgeState& state) { return state.selection == action; };
    printStored(agent.perform(command::Select{action}, confirms), context);
    return ExitStatus::done;
}

ExitStatus perform(const ctl::Timer& command, Context& context) {
    AgentConnection agent(context);
    const Action action = resolve(command.action, agent);
    const Date sent = context.clock.now();
    // The same action may have been running already. The agent starts counting between now and its
    // answer; a little more is left to whoever rounds.
    constexpr double tolerance = 0.5;
    const auto confirms = [&](const BridgeState& state) {
        const Date earliest = sent + (command.duration - tolerance);
        const Date latest = context.clock.now() + (command.duration + tolerance);
        return state.timerAction == action && state.timerEnds && *state.timerEnds >= earliest &&
               *state.timerEnds <= latest;
    };
    printConfirmation(agent.perform(command::StartTimer{action, command.duration}, confirms),
                      context);
    return ExitStatus::done;
}

ExitStatus perform(const ctl::CancelTimer&, Context& context) {
    return perform(
        command::CancelTimer{}, [](const BridgeState& state) { return !state.timerAction; },
        context);
}

ExitStatus perform(const ctl::LaunchAtLogin& command, Context& context) {
    const auto confirms = [&](const BridgeState& state) {
        return state.launchAtLogin == command.enabled;
    };
    AgentConnection agent(context);
    printStored(agent.perform(command::SetLaunchAtLogin{command.enabled}, confirms), context);
    return ExitStatus::done;
}

ExitStatus perform(const ctl::CheckForUpdates&, Context& context) {
    // A state does not show that the agent looks for a version. Its answer is enough.
    return perform(
        command::CheckForUpdates{}, [](const BridgeState&) { return true; }, context);
}

} // namespace tervale
