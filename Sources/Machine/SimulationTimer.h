#pragma once

#include "Simulation/Simulation.h"

#include <QElapsedTimer>
#include <QTimer>

#include <chrono>

namespace tervale {

/// Moves a simulation on as time passes here, from the event loop. After the machine slept, the
/// simulation goes on about where it was.
class SimulationTimer {
  public:
    /// The most that passes at once, in seconds of this machine.
    static constexpr double longestStep = 5;

    /// Once an interval. `simulation` outlives the object; `speed` is how many of its seconds pass
    /// in one.
    SimulationTimer(Simulation& simulation, std::chrono::milliseconds interval, double speed = 1);
    SimulationTimer(const SimulationTimer&) = delete;
    SimulationTimer& operator=(const SimulationTimer&) = delete;

    /// What so much time here is to the simulation, in seconds.
    static double step(std::chrono::milliseconds passed, double speed);
    void stop() { timer.stop(); }

  private:
    QElapsedTimer sinceStep;
    QTimer timer;
};

} // namespace tervale
