#pragma once

#include "Machine/SimulationTimer.h"
#include "Platform/Linux/SocketServer.h"
#include "Profiles/Clock.h"
#include "Profiles/NotificationCenter.h"
#include "Profiles/Preferences.h"
#include "Simulation/Simulation.h"
#include "tervale-simulator/SimulatorCommandLine.h"

#include <filesystem>
#include <memory>
#include <optional>

namespace tervale {

/// What the program runs: a simulation in real time, or faster, with whatever of it other processes
/// are to see: the controller on a socket, the agent on the notification center. What the agent
/// stores is there again on the next start.
///
/// The agent keeps to this machine's clock however fast the Mac goes, so that its timers end when
/// it says; its control ticks are seconds of the Mac.
class Simulator {
  public:
    /// Throws `SocketServer::Refused`. `center` and `preferences` are for the agent, and outlive
    /// the object.
    Simulator(const SimulatorCommandLine::Run& run, NotificationCenter& center,
              Preferences& preferences);
    ~Simulator();
    Simulator(const Simulator&) = delete;
    Simulator& operator=(const Simulator&) = delete;

    Simulation& simulation() { return simulated; }
    /// Where the controller is served; nothing if it is not.
    const std::optional<std::filesystem::path>& socketPath() const { return path; }
    /// Gives the fans back and removes the socket, as the object does when it goes.
    void end();

  private:
    void serve(const std::optional<std::filesystem::path>& chosenPath);

    SystemClock clock;
    Simulation simulated;
    std::optional<std::filesystem::path> path;
    std::unique_ptr<SocketServer> server;
    SimulationTimer timer;
};

} // namespace tervale
