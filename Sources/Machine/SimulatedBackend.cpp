#include "Machine/SimulatedBackend.h"

#include <algorithm>
#include <chrono>

namespace tervale {

using namespace std::chrono_literals;

namespace {

// After the machine slept, the simulated one goes on where it was.
constexpr double longestStep = 5.0;

SimulatedMacOptions hostOptions() {
    SimulatedMacOptions options;
    options.scenario = Scenario::host;
    options.hostLoad = makeProcessorLoad();
    return options;
}

} // namespace

SimulatedBackend::SimulatedBackend()
    : preferences(makePreferences("tervale-simulation")),
      simulation(hostOptions(), center, *preferences, clock) {
    connect(&timer, &QTimer::timeout, this, &SimulatedBackend::advance);
    timer.start(1s);
    sinceAdvance.start();
}

void SimulatedBackend::advance() {
    const auto milliseconds = static_cast<double>(sinceAdvance.restart());
    simulation.advance(std::min(milliseconds / 1000.0, longestStep));
}

} // namespace tervale
