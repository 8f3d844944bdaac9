#pragma once

#include "Machine/SimulationTimer.h"
#include "Platform/Linux/SocketServer.h"
#include "Simulation/Simulation.h"
#include "tervale-simulator/SimulatorCommandLine.h"

#include <QTimer>

#include <filesystem>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace tervale {

/// What the program runs: a simulated Mac in real time, or faster, whose controller other processes
/// reach on a socket. A socket that was removed is made again; who is connected stays so. Nobody
/// drives its fans here but the firmware.
class Simulator {
  public:
    /// Thrown for a key that the Mac does not have. `what()` is one line for people.
    struct NoSuchKey : std::runtime_error {
        using std::runtime_error::runtime_error;
    };

    /// Takes what people should learn of, a line at a time.
    using Report = std::function<void(const std::string& line)>;

    /// Throws `SocketServer::Refused` and `NoSuchKey`.
    explicit Simulator(const SimulatorCommandLine::Run& run, Report report = nullptr);
    Simulator(const Simulator&) = delete;
    Simulator& operator=(const Simulator&) = delete;

    Simulation& simulation() { return simulated; }
    /// Where the controller is served.
    const std::filesystem::path& socketPath() const { return path; }

  private:
    static std::filesystem::path pathOf(const SimulatorCommandLine::Run& run);
    void inject(const SimulatorCommandLine::KeyFault& fault);
    void serve();
    /// Serves anew where the socket was removed, and lets go of what nobody uses any more.
    void lookAfterSocket();
    void serveAgain();

    Simulation simulated;
    bool isUsualPlace;
    std::filesystem::path path;
    Report report;
    /// The last one is at the path. Those before it have clients from before theirs was removed.
    std::vector<std::unique_ptr<SocketServer>> servers;
    SimulationTimer timer;
    QTimer look;
    std::string lastRefusal;
};

} // namespace tervale
