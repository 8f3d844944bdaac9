#include "tervale-agent/AgentProgram.h"

#include "Base/Terminal.h"
#include "Machine/SimulationTimer.h"
#include "Platform/Platform.h"
#include "Platform/ServiceManager.h"
#include "tervale-agent/Guard.h"

#include <QMetaObject>

#include <chrono>
#include <tervale/Version.h>
#include <utility>
#include <variant>

namespace tervale {

using namespace std::chrono_literals;
using Level = AgentLog::Level;

namespace {

const char* preferencesDomain(const MachineChoice& machine) {
    return std::holds_alternative<machineChoice::Simulated>(machine) ? "tervale-simulation"
                                                                     : "tervale";
}

} // namespace

AgentProgram::AgentProgram(const AgentCommandLine::Run& run, NotificationCenter& notificationCenter,
                           Ending given)
    : messages(AgentLog::standard(run.logLevel)),
      center(notificationCenter),
      ending(std::move(given)),
      writing(run.dryRun ? AgentStatus::Writing::pretended : AgentStatus::Writing::done),
      machine(run.machine,
              run.dryRun ? AgentMachine::Writing::pretended : AgentMachine::Writing::allowed),
      preferences(makePreferences(preferencesDomain(run.machine))) {
    if (machine.outlivesProcess() && !run.dryRun)
        guard = std::make_unique<GuardProcess>(guardArguments(run.machine, run.logLevel));
    // Nobody wants an agent at login on account of a simulated machine.
    if (std::holds_alternative<machineChoice::System>(run.machine))
        loginItem = makeLoginItem();
    log(Level::info, std::string("Version ") + version::text + (run.dryRun ? ", dry run" : ""));
    QObject::connect(&timer, &QTimer::timeout, &timer, [this] { tick(); });
    channelObserver = center.observeChannel([this](Channel channel) { logChannel(channel); });
    timer.start(1s);
    sinceTick.start();
    begin();
    tellServiceManager("READY=1");
}

AgentProgram::~AgentProgram() = default;

void AgentProgram::begin() {
    agent.emplace(Agent::Seams{
        .smc = smc,
        .center = center,
        .preferences = *preferences,
        .clock = clock,
        .load = [this] { return load ? load() : std::nullopt; },
        .guard = guard ? FanPermission::Guard([this] { return keepGuard(); }) : nullptr,
        .writing = writing,
        .reach = [this] { return reach(); },
        // Behind everything that waits in the event loop now; never once the object is gone.
        .later =
            [this](std::function<void()> task) {
                QMetaObject::invokeMethod(&timer, std::move(task), Qt::QueuedConnection);
            },
        .loginItem = loginItem,
        .trace = [this](const std::string& line) { log(Level::debug, line); }});
    logState();
}

void AgentProgram::tick() {
    machine.advance(SimulationTimer::step(std::chrono::milliseconds(sinceTick.restart()), 1));
    tellServiceManager("WATCHDOG=1");
    if (!keepLock())
        return;
    agent->tick();
    logState();
}

void AgentProgram::sleep() {
    if (ended)
        return;
    // The machine sleeps when this returns, and a controller may be back in a moment.
    constexpr auto pause = 200ms;
    const auto deadline = std::chrono::steady_clock::now() + sleepPatience;
    bool done = agent->sleep();
    log(Level::info, "The machine goes to sleep.");
    // Who is told to end meanwhile does so at once, and tries once more in the end.
    while (!done && std::chrono::steady_clock::now() < deadline && !ending.toldWithin(pause))
        done = agent->sleep();
    if (!done)
        log(Level::error, "The fans could not be handed back before the sleep.");
}

void AgentProgram::wake() {
    if (ended)
        return;
    sinceTick.restart();
    agent->wake();
    log(Level::info, "The machine is awake.");
    logState();
}

void AgentProgram::note(SleepNews news) {
    if (news == SleepNews::told)
        log(Level::info, "The system tells of the machine's sleep again.");
    else
        log(Level::warning, "The system does not tell of the machine's sleep: the fans are not "
                            "handed back before it.");
}

int AgentProgram::end(std::string_view reason) {
    if (ended)
        return *ended;
    timer.stop();
    const std::optional<std::string> error = agent->end();
    ended = error ? notHandedBack : exitStatus::done;
    tellServiceManager("STOPPING=1");
    if (error) {
        // The guard goes on trying.
        log(Level::error, "The fans could not be handed back: " + *error);
        return *ended;
    }
    if (guard)
        guard->dismiss();
    log(Level::info, std::string(reason) + ' ' + agent->currentState().status.value_or(""));
    return *ended;
}

bool AgentProgram::keepLock() {
    try {
        lock.keep();
        return true;
    } catch (const AgentLock::Unavailable& fault) {
        // Without a lock, another agent could start beside this one.
        leave(fault.what(), withoutLock);
    } catch (const AgentLock::Refused& refusal) {
        leave(refusal.what(), exitStatus::failure);
    }
    return false;
}

void AgentProgram::leave(const char* reason, int status) {
    timer.stop();
    // Another agent speaks for the fans from now on, and the guard goes on where this fails.
    const bool done = !agent->giveWay();
    ended = status;
    tellServiceManager("STOPPING=1");
    if (done && guard)
        guard->dismiss();
    messages.complain(reason);
    ending.finish(status);
}

std::optional<std::string> AgentProgram::reach() {
    std::optional<std::string> missing = controller.reach();
    if (!missing) {
        load = machine.load();
        log(Level::info, "The controller is there.");
    } else if (missing != missed) {
        log(Level::warning, *missing + ". It is looked for once a second.");
    }
    missed = missing;
    return missing;
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
    for (const std::string& line : stateLog.changes(agent->currentState()))
        log(Level::info, line);
}

void AgentProgram::logChannel(Channel channel) {
    if (channel == Channel::back)
        log(Level::info, "The session bus is back.");
    else
        log(Level::warning, "The session bus is gone. It is looked for.");
}

void AgentProgram::log(Level level, std::string_view line) {
    messages.write(level, line, clock.steady());
}

} // namespace tervale
