#include "Simulation/SimulatedHardware.h"

#include "Base/Precondition.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tervale {

namespace {

constexpr int stepsPerSecond = 10;
constexpr double stepSeconds = 1.0 / stepsPerSecond;
constexpr int stepsPerSensorUpdate = 5;

std::vector<SimulatedFan> makeFans(std::size_t count) {
    std::vector<SimulatedFan> fans;
    for (std::size_t i = 0; i < count; ++i) {
        // No two fans are alike.
        const ClosedRange limits{1200.0 + 100.0 * static_cast<double>(i),
                                 5777.0 + 464.0 * static_cast<double>(i)};
        fans.push_back({.limits = limits, .actual = limits.lower, .target = limits.lower});
    }
    return fans;
}

} // namespace

SimulatedHardware::SimulatedHardware(std::uint64_t seed, Scenario scenario, LoadReading hostLoad,
                                     std::size_t fanCount, std::size_t sensorCount)
    : random(seed),
      scenario(scenario),
      workloads(scenario, std::move(hostLoad)),
      heat(roomTemperature(scenario)),
      sensorBank(sensorCount, random),
      fanList(makeFans(fanCount)) {
    settle();
}

void SimulatedHardware::settle() {
    // A heat wave is worth watching from its beginning.
    const WorkloadSource before(scenario == Scenario::heatwave ? Scenario::idle : scenario, {});
    constexpr int twentyMinutes = 20 * 60 * stepsPerSecond;
    for (int i = 0; i < twentyMinutes; ++i)
        stepHeat(before.typical(),
                 std::max(heat.temperature(SensorGroup::cpu), heat.temperature(SensorGroup::gpu)));
    sensorBank.settle(heat);
}

void SimulatedHardware::advance(double seconds) {
    precondition(std::isfinite(seconds) && seconds >= 0, "time was to pass backwards");
    elapsed += seconds;
    // Many small portions must not lose a step to rounding.
    const auto due = static_cast<std::int64_t>(elapsed * stepsPerSecond + 1e-6);
    while (steps < due)
        step();
}

void SimulatedHardware::step() {
    if (steps % stepsPerSecond == 0)
        workloads.advanceSecond(random);
    stepHeat(workloads.current(), sensorBank.hottest());
    ++steps;
    if (steps % stepsPerSensorUpdate == 0) {
        const auto presence = scenario == Scenario::dropout ? SensorBank::Presence::comeAndGo
                                                            : SensorBank::Presence::constant;
        sensorBank.advance(stepSeconds * stepsPerSensorUpdate, heat, presence, random);
    }
}

void SimulatedHardware::stepHeat(const Workload& workload, double hottest) {
    double airflow = 0;
    for (SimulatedFan& fan : fanList) {
        fan.regulate(hottest);
        fan.advance(stepSeconds);
        airflow += fan.airflow() / static_cast<double>(fanList.size());
    }
    heat.advance(stepSeconds, workload, airflow);
}

void SimulatedHardware::lock() {
    unlocked = false;
    for (SimulatedFan& fan : fanList)
        fan.mode = 0;
}

bool SimulatedHardware::setFanMode(std::size_t fan, std::uint8_t mode) {
    if (mode != 0 && !unlocked)
        return false;
    fanList.at(fan).mode = mode;
    return true;
}

void SimulatedHardware::setFanTarget(std::size_t fan, double rpm) {
    const ClosedRange limits = fanList.at(fan).limits;
    fanList.at(fan).target = std::clamp(rpm, limits.lower, limits.upper);
}

} // namespace tervale
