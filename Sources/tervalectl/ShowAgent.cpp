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
    std::optional<AgentLock::Holder> process;
};

AgentReport report(const Context& context) {
    AgentReport found;
    try {
        found.state = AgentConnection(context).state();
    } catch (const Failure& failure) {
        if (failure.status != ExitStatus::noAnswer)
            throw;
    }
    found.process = context.session.agentProcess();
    return found;
}

void printAsJSON(const AgentReport& report, std::ostream& out) {
    JSONWriter json;
    json.object([&] {
        json.member("answers", report.state.has_value());
        if (report.process) {
            json.member("process", report.process->process);
            json.member("started", report.process->started);
            json.optionalMember("guard", report.process->guard);
        }
        if (report.state)
            json.optionalMember("status", report.state->status);
    });
    printJSON(out, json.text);
}

void print(const AgentReport& report, std::ostream& out) {
    Table table({{"AGENT"}, {"VALUE"}});
    table.add({"Answers", report.state ? "yes" : "no"});
    if (const auto& process = report.process) {
        table.add({"Process", std::to_string(process->process)});
        table.add({"Started", process->started});
        table.add(
            {"Guard", process->guard ? "process " + std::to_string(*process->guard) : "none"});
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
