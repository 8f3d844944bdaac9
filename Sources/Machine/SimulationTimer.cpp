#include "Machine/SimulationTimer.h"

#include <algorithm>

namespace tervale {

SimulationTimer::SimulationTimer(Simulation& simulation, std::chrono::milliseconds interval,
                                 double speed) {
    QObject::connect(&timer, &QTimer::timeout, &timer, [this, &simulation, speed] {
        const std::chrono::milliseconds passed(sinceStep.restart());
        simulation.advance(step(passed, speed));
    });
    timer.start(interval);
    sinceStep.start();
}

double SimulationTimer::step(std::chrono::milliseconds passed, double speed) {
    const std::chrono::duration<double> seconds = passed;
    return std::min(seconds.count(), longestStep) * speed;
}

} // namespace tervale
