#include "Simulation/Simulation.h"

#include <algorithm>

namespace tervale {

Simulation::Simulation(const SimulatedMacOptions& options, NotificationCenter& center,
                       Preferences& preferences, Date start)
    : simulatedMac(options),
      virtualClock(start),
      agentClock(virtualClock),
      smc(simulatedMac),
      simulatedAgent({smc, center, preferences, agentClock, [this] { return mac().load(); }}) {}

Simulation::Simulation(const SimulatedMacOptions& options, NotificationCenter& center,
                       Preferences& preferences, const Clock& clock)
    : simulatedMac(options),
      agentClock(clock),
      smc(simulatedMac),
      simulatedAgent({smc, center, preferences, agentClock, [this] { return mac().load(); }}) {}

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
        simulatedAgent.tick();
    }
}

} // namespace tervale
