#include "Simulation/Simulation.h"

#include <algorithm>

namespace tervale {

Simulation::Simulation(const SimulatedMacOptions& options, Date start)
    : simulatedMac(options),
      virtualClock(start),
      smc(simulatedMac) {}

Simulation::Simulation(const SimulatedMacOptions& options, NotificationCenter& center,
                       Preferences& preferences, Date start)
    : Simulation(options, start) {
    startAgent(center, preferences, virtualClock);
}

Simulation::Simulation(const SimulatedMacOptions& options, NotificationCenter& center,
                       Preferences& preferences, const Clock& clock)
    : Simulation(options) {
    startAgent(center, preferences, clock);
}

void Simulation::startAgent(NotificationCenter& center, Preferences& preferences,
                            const Clock& clock) {
    driver.emplace(
        Agent::Seams{smc, center, preferences, clock, [this] { return simulatedMac.load(); }});
}

void Simulation::advance(double seconds) {
    // Portions such as tenths do not add up to a second exactly.
    constexpr double rounding = 1e-9;
    while (seconds > 0) {
        const double portion = std::min(seconds, 1.0 - pending);
        simulatedMac.advance(portion);
        virtualClock.advance(portion);
        seconds -= portion;
        pending += portion;
        if (pending < 1.0 - rounding)
            return;
        pending = 0;
        if (driver)
            driver->tick();
    }
}

} // namespace tervale
