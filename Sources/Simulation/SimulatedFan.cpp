#include "Simulation/SimulatedFan.h"

#include <algorithm>

namespace tervale {

void SimulatedFan::regulate(double hottest) {
    constexpr double begins = 55.0;
    constexpr double sharePerDegree = 0.01;
    constexpr double loudest = 0.35;
    if (mode != 0)
        return;
    const double share = std::clamp((hottest - begins) * sharePerDegree, 0.0, loudest);
    target = limits.lower + limits.span() * share;
}

void SimulatedFan::advance(double seconds) {
    constexpr double timeConstant = 2.5;
    actual += (target - actual) * std::min(seconds / timeConstant, 1.0);
}

} // namespace tervale
