#pragma once

#include "Profiles/InMemoryPreferences.h"
#include "Profiles/InProcessNotificationCenter.h"
#include "Simulation/Simulation.h"
#include "tervalectl/Run.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <sstream>
#include <string>

namespace tervale {

/// Runs command lines on a simulated Mac that stands still.
class CommandRunner {
  public:
    ExitStatus run(const QStringList& arguments, const std::string& input = {}) {
        std::istringstream in(input);
        std::ostringstream out;
        std::ostringstream err;
        const auto request = ctl::CommandLine::parse(QStringList{"tervalectl"} + arguments);
        const auto& chosen = std::get<ctl::CommandLine::Run>(request);
        Context context{in,          out,       clock,
                        chosen.json, timeout,   [this] { return machine(); },
                        session(),   textStyle, drawPNG};
        const ExitStatus status = perform(chosen, context, err);
        output = out.str();
        errors = err.str();
        return status;
    }

    SimulatedMac mac{{.scenario = Scenario::idle, .sensors = 12, .fillers = 20}};
    IORegistry* registry = &mac;
    SimulatedClock clock{{12 * 3600.0}};
    InProcessNotificationCenter center{&runOnMainThread};
    /// Asked in place of the other, if there is one.
    NotificationCenter* otherCenter = nullptr;
    /// Told as this machine's load, if there is one.
    std::optional<double> hostLoad;
    /// Called whenever the load is read: once before the first reading, and once with each.
    std::function<void()> atLoad;
    /// What it shares belongs to the test.
    Machine machine() {
        const std::shared_ptr<void> nobody;
        return {std::shared_ptr<IORegistry>(nobody, registry),
                std::shared_ptr<NotificationCenter>(nobody, otherCenter ? otherCenter : &center),
                [this] {
                    if (atLoad)
                        atLoad();
                    return hostLoad ? hostLoad : std::optional(mac.load());
                }};
    }
    Session session() {
        return {.agentProcess = [this] { return agentProcess; },
                .isGuard = [this](std::int64_t process) { return process == guard; },
                .hasChannel = [this] { return hasChannel; },
                .makePreferences =
                    [this] {
                        return std::shared_ptr<Preferences>(std::shared_ptr<void>(),
                                                            otherPreferences ? otherPreferences
                                                                             : &preferences);
                    }};
    }
    std::optional<AgentLock::Holder> agentProcess;
    /// The process that stands guard.
    std::optional<std::int64_t> guard = 1235;
    TextStyle textStyle;
    std::function<std::string(const std::string&)> drawPNG;
    bool hasChannel = true;
    InMemoryPreferences preferences;
    /// Asked in place of those, if there are any.
    Preferences* otherPreferences = nullptr;
    /// In seconds, for the agent; in place of the option.
    double timeout = 10;
    std::string output;
    std::string errors;
};

/// A stand-in for the agent that does what the test says.
class ScriptedAgent {
  public:
    explicit ScriptedAgent(NotificationCenter& center) : bridge(center) {}

    BridgeState state;
    std::vector<BridgeCommand> heard;
    /// Changes the state as the agent would; nothing changes without it.
    std::function<void(const BridgeCommand&)> obey;
    bool answers = true;

  private:
    Bridge bridge;
    ObserverToken commands = bridge.onCommand([this](const BridgeCommand& command) {
        heard.push_back(command);
        if (obey)
            obey(command);
        if (answers)
            bridge.publish(state);
    });
};

} // namespace tervale
