#include "TervaleWindow/Gauges/FrameTimes.h"

#include <algorithm>
#include <cmath>

namespace tervale {

namespace {

constexpr double visible = 0.5; // device pixels

double cube(double first, double second, double parameter) {
    const double rest = 1 - parameter;
    return 3 * rest * rest * parameter * first + 3 * rest * parameter * parameter * second +
           parameter * parameter * parameter;
}

} // namespace

double eased(double fraction) {
    const double time = std::clamp(fraction, 0.0, 1.0);
    // The control points lie at (0.25, 0.1) and (0.25, 1). Nowhere is the time's curve flat, so
    // that a few steps of Newton's find the parameter.
    double parameter = time;
    for (int step = 0; step < 8; ++step) {
        const double slope = 0.75 - 1.5 * parameter + 3 * parameter * parameter;
        parameter -= (cube(0.25, 0.25, parameter) - time) / slope;
    }
    return cube(0.1, 1.0, parameter);
}

double FrameTimes::after(double shown) const {
    const double place = distance * eased(shown / gaugeDuration);
    // Nothing that is left would be seen before the end.
    if (!(distance - place >= visible))
        return gaugeDuration;
    // A refresh of just now is over.
    constexpr double justNow = 1e-6;
    const double passed = std::floor((shown - firstRefresh) / refreshInterval + justNow) + 1;
    double time = firstRefresh + std::max(passed, 0.0) * refreshInterval;
    while (time < gaugeDuration && distance * eased(time / gaugeDuration) - place < visible)
        time += refreshInterval;
    return std::min(time, gaugeDuration);
}

} // namespace tervale
