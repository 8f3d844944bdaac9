#include "tervalectl/ShowAgent.h"

#include "JSON/JSON.h"
#include "tervalectl/AgentConnection.h"
#include "tervalectl/Formatting.h"

#include <optional>
#include <string>

namespace tervale {

namespace {

struct AgentReport {
    /// Nothing if it does not answer.
    std::optional<BridgeState> state;
    /// Nothing if no agent runs as a program of its own.
    std::optional<RunningAgent> process;
};

AgentReport report(const Context& context) {
    AgentReport found;
    try {
        found.state = AgentConnection(context).state();
    } catch (const Failure& failure) {
        if (failure.status != ExitStatus::noAnswer)
            throw;
    }
    found.process = runningAgent(context.session);
    return found;
}

void printAsJSON(const AgentReport& report, std::ostream& out) {
    JSONWriter json;
    json.object([&] {
        json.member("answers", report.state.has_value());
        if (report.process) {
            const AgentLock::Holder& holder = report.process->holder;
            json.optionalMember("process", holder.process);
            json.member("started", holder.started);
            json.optionalMember("guard", holder.guard);
            json.member("guarded", report.process->isGuarded);
        }
        if (report.state)
            json.optionalMember("status", report.state->status);
    });
    printJSON(out, json.text);
}

std::string guardText(const RunningAgent& agent) {
    if (!agent.holder.guard)
        return "none";
    const std::string process = "process " + std::to_string(*agent.holder.guard);
    return agent.isGuarded ? process : process + " is gone";
}

void print(const AgentReport& report, std::ostream& out) {
    Table table({{"AGENT"}, {"VALUE"}});
    table.add({"Answers", report.state ? "yes" : "no"});
    if (const auto& process = report.process) {
        const AgentLock::Holder& holder = process->holder;
        table.add({"Process", holder.process ? std::to_string(*holder.process) : "not told yet"});
        table.add({"Started", holder.started});
        table.add({"Guard", guardText(*process)});
    }
    if (report.state)
        table.add({"Status", report.state->status.value_or("")});
    table.print(out);
}

} // namespace

ExitStatus perform(const ctl::ShowAgent&, Context& context) {
    const AgentReport found = report(context);
    if (context.json)
        printAsJSON(found, context.out);
    else
        print(found, context.out);
    return found.state ? ExitStatus::done : ExitStatus::noAnswer;
}

} // namespace tervale
