#pragma once

#include "Agent/Agent.h"
#include "Platform/Linux/SocketServer.h"
#include "Profiles/Clock.h"
#include "Profiles/NotificationCenter.h"
#include "Profiles/Preferences.h"
#include "SMC/SMC.h"
#include "Simulation/SimulatedMac.h"
#include "tervale-simulator/SimulatorCommandLine.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <memory>
#include <optional>

namespace tervale {

/// A simulated Mac in real time, or faster, with whatever of it other processes are to see: its
/// controller on a socket, its agent on the notification center. What the agent stores is there
/// again on the next start.
///
/// The agent keeps to this machine's clock however fast the Mac goes, so that its timers end when
/// it says; its control ticks are seconds of the Mac.
class SimulatorProcess final : public QObject {
    Q_OBJECT

  public:
    /// Throws `SocketServer::Refused`. `center` and `preferences` are for the agent, and outlive
    /// the object.
    SimulatorProcess(const SimulatorCommandLine::Run& run, NotificationCenter& center,
                     Preferences& preferences);
    ~SimulatorProcess() override;

    SimulatedMac& mac() { return simulatedMac; }
    /// Where the controller is lent; nothing if it is not.
    const std::optional<std::filesystem::path>& socketPath() const { return path; }
    /// Gives the fans back and removes the socket, as the object does when it goes.
    void end();
    /// Lets time pass on the Mac, in seconds.
    void advance(double seconds);

  private:
    void serve(const std::optional<std::filesystem::path>& chosenPath);
    void advanceInRealTime();

    SystemClock clock;
    double speed;
    SimulatedMac simulatedMac;
    std::optional<std::filesystem::path> path;
    std::unique_ptr<SocketServer> server;
    SMC smc;
    std::unique_ptr<Agent> agent;
    /// Since the agent's last tick.
    double pending = 0;
    QElapsedTimer sinceAdvance;
    QTimer timer;
};

} // namespace tervale
