#pragma once

#include "Machine/SimulationTimer.h"
#include "Platform/Linux/SocketServer.h"
#include "Simulation/Simulation.h"
#include "tervale-simulator/SimulatorCommandLine.h"

#include <filesystem>
#include <stdexcept>

namespace tervale {

/// What the program runs: a simulated Mac in real time, or faster, whose controller other processes
/// reach on a socket. Nobody drives its fans here but the firmware.
class Simulator {
  public:
    /// Thrown for a key that the Mac does not have. `what()` is one line for people.
    struct NoSuchKey : std::runtime_error {
        using std::runtime_error::runtime_error;
    };

    /// Throws `SocketServer::Refused` and `NoSuchKey`.
    explicit Simulator(const SimulatorCommandLine::Run& run);
    Simulator(const Simulator&) = delete;
    Simulator& operator=(const Simulator&) = delete;

    Simulation& simulation() { return simulated; }
    /// Where the controller is served.
    const std::filesystem::path& socketPath() const { return path; }

  private:
    static std::filesystem::path pathOf(const SimulatorCommandLine::Run& run);
    void inject(const SimulatorCommandLine::KeyFault& fault);

    Simulation simulated;
    std::filesystem::path path;
    SocketServer server;
    SimulationTimer timer;
};

} // namespace tervale
