#include "Simulation/HeatModel.h"

#include <algorithm>
#include <cstddef>

namespace tervale {

namespace {

/// Power in watts, conductance to the sink in watts per kelvin, capacity in joules per kelvin.
struct Part {
    double idlePower;
    double processorPower;
    double graphicsPower;
    double conductance;
    double capacity;
};

constexpr std::array<Part, SensorGroup::allCases.size()> parameters{{
    {4.0, 24.0, 0.0, 1.4, 4.0},  // cpu
    {2.0, 0.0, 18.0, 1.3, 4.0},  // gpu
    {1.0, 1.0, 1.0, 0.5, 10.0},  // memory
    {0.8, 1.0, 0.0, 0.5, 14.0},  // ssd
    {0.8, 1.5, 1.5, 0.4, 6.0},   // power
    {0.1, 0.1, 0.1, 0.05, 20.0}, // other
}};
static_assert(std::ranges::all_of(parameters, [](const Part& part) { return part.capacity > 0; }),
              "a group has no part of the machine");

constexpr double sinkCapacity = 90.0;
constexpr double stillAirConductance = 0.33;
constexpr double airflowConductance = 1.8;
/// The parts that lie apart from the sink are this much cooler than it, as a share of its warmth.
constexpr double apart = 0.55;

} // namespace

HeatModel::HeatModel(double room) : roomTemperature(room), sink(room) {
    parts.fill(room);
}

void HeatModel::advance(double seconds, const Workload& workload, double airflow) {
    double intoSink = 0;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const Part& part = parameters[i];
        const double power = part.idlePower + part.processorPower * workload.processor +
                             part.graphicsPower * workload.graphics;
        const double passedOn = part.conductance * (parts[i] - sink);
        parts[i] += (power - passedOn) * seconds / part.capacity;
        intoSink += passedOn;
    }
    const double conductance = stillAirConductance + airflowConductance * airflow;
    sink += (intoSink - conductance * (sink - roomTemperature)) * seconds / sinkCapacity;
}

double HeatModel::temperature(SensorGroup group) const {
    const double part = parts[static_cast<std::size_t>(static_cast<SensorGroup::Case>(group))];
    if (group == SensorGroup::other)
        return roomTemperature + (part - roomTemperature) * (1 - apart);
    return part;
}

} // namespace tervale
