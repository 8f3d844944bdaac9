#pragma once

#include "Support/PrivateBus.h"

#include <chrono>

namespace tervale {

/// How long a test waits for the answer of a Mac that nobody stops.
inline constexpr std::chrono::seconds patienceWithMac{60};

/// `tervale-simulator` in the session. Started once it has said what it offers.
class SimulatorProgram : public ChildProcess {
  public:
    explicit SimulatorProgram(const PrivateBus& bus, const QStringList& arguments = {})
        : ChildProcess(QStringLiteral(TERVALE_SIMULATOR), arguments, bus.environment()) {
        says("Controller on");
    }
};

/// `tervale-agent` in the session. Started once it says that it drives the fans, or why it does
/// not.
class AgentProcess : public ChildProcess {
  public:
    explicit AgentProcess(const PrivateBus& bus, const QStringList& arguments = {})
        : AgentProcess(bus.environment(), arguments) {}
    explicit AgentProcess(const QProcessEnvironment& environment, const QStringList& arguments = {})
        : ChildProcess(QStringLiteral(TERVALE_AGENT), arguments, environment) {
        eventually([this] { return errors().contains("Profiles: ") || !runs(); });
    }
};

/// A simulated Mac and the agent that drives its fans, a process each.
struct MacWithAgent {
    explicit MacWithAgent(const PrivateBus& bus, const QStringList& arguments = {})
        : mac(bus, arguments),
          agent(bus) {}

    SimulatorProgram mac;
    AgentProcess agent;
};

/// `tervale-window` in the session, on no screen.
class WindowProgram : public ChildProcess {
  public:
    explicit WindowProgram(const QProcessEnvironment& environment)
        : ChildProcess(QStringLiteral(TERVALE_WINDOW), {}, environment) {}
    explicit WindowProgram(const PrivateBus& bus) : WindowProgram(bus.environment()) {}
};

} // namespace tervale
