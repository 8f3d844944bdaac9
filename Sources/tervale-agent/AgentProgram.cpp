#include "tervale-agent/AgentProgram.h"

#include "Base/Terminal.h"
#include "Machine/SimulationTimer.h"
#include "Platform/Platform.h"
#include "Platform/ServiceManager.h"
#include "tervale-agent/Guard.h"

#include <chrono>
#include <tervale/Version.h>

namespace tervale {

using namespace std::chrono_literals;
using Level = AgentLog::Level;

namespace {

constexpr const char* dryRunRemark = "Dry run: nothing is written to the controller.";

const char* preferencesDomain(const MachineChoice& machine) {
    return std::holds_alternative<machineChoice::Simulated>(machine) ? "tervale-simulation"
                                                                     : "tervale";
}

AgentMachine::Writing writingOf(const AgentCommandLine::Run& run) {
    return run.dryRun ? AgentMachine::Writing::pretended : AgentMachine::Writing::allowed;
}

} // namespace

AgentProgram::AgentProgram(const AgentCommandLine::Run& run, NotificationCenter& notificationCenter)
    : messages(AgentLog::standard(run.logLevel)),
      center(notificationCenter),
      machine(run.machine, writingOf(run)),
      preferences(makePreferences(preferencesDomain(run.machine))) {
    if (machine.outlivesProcess() && !run.dryRun)
        guard = std::make_unique<GuardProcess>(guardArguments(run.machine));
    if (run.dryRun)
        remark = dryRunRemark;
    log(Level::info, std::string("Version ") + version::text + (run.dryRun ? ", dry run" : ""));
    QObject::connect(&timer, &QTimer::timeout, &timer, [this] { tick(); });
    timer.start(1s);
    sinceTick.start();
    begin();
    tellServiceManager("READY=1");
}

AgentProgram::~AgentProgram() = default;

void AgentProgram::begin() {
    try {
        smc.emplace(machine.registry());
        agent.emplace(Agent::Seams{
            .smc = *smc,
            .center = center,
            .preferences = *preferences,
            .clock = clock,
            .load = machine.load(),
            .guard = guard ? FanPermission::Guard([this] { return keepGuard(); }) : nullptr,
            .remark = remark});
        log(Level::info, "The controller is there.");
        logState();
    } catch (const SMCError& error) {
        if (!std::exchange(controllerMissed, true))
            log(Level::warning, error.description + ". It is looked for once a second.");
    }
}

void AgentProgram::tick() {
    machine.advance(SimulationTimer::step(std::chrono::milliseconds(sinceTick.restart()), 1));
    tellServiceManager("WATCHDOG=1");
    if (!agent) {
        begin();
        return;
    }
    agent->tick();
    logState();
}

void AgentProgram::sleep() {
    log(Level::info, "The machine goes to sleep.");
    if (agent)
        agent->sleep();
}

void AgentProgram::wake() {
    log(Level::info, "The machine is awake.");
    sinceTick.restart();
    if (agent)
        agent->wake();
    logState();
}

int AgentProgram::end(std::string_view reason) {
    timer.stop();
    tellServiceManager("STOPPING=1");
    const std::optional<std::string> error = agent ? agent->end() : std::nullopt;
    if (error) {
        // The guard goes on trying.
        log(Level::error, "The fans could not be handed back: " + *error);
        return exitStatus::failure;
    }
    if (guard)
        guard->dismiss();
    log(Level::info, std::string(reason) + " The fans are automatic.");
    return exitStatus::done;
}

bool AgentProgram::keepGuard() {
    const std::optional<std::int64_t> before = guard->process();
    const bool stands = guard->keep();
    const std::optional<std::int64_t> now = guard->process();
    if (now != before) {
        lock.setGuard(now);
        if (before)
            log(Level::warning, "The guard was gone.");
        if (stands)
            log(Level::info, "A guard stands: process " + std::to_string(*now) + ".");
    }
    return stands;
}

void AgentProgram::logState() {
    if (!agent)
        return;
    for (const std::string& line : stateLog.changes(agent->currentState()))
        log(Level::info, line);
}

void AgentProgram::log(Level level, std::string_view line) {
    messages.write(level, line, clock.steady());
}

} // namespace tervale
