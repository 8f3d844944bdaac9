#include "Profiles/SensorSampler.h"

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

using namespace tervale;

namespace {

std::vector<TemperatureSensor> sixGroupsOf(std::size_t count) {
    std::vector<TemperatureSensor> sensors;
    for (const SensorGroup group : SensorGroup::allCases) {
        for (std::size_t i = 0; i < count; ++i)
            sensors.push_back(
                {std::string(group.rawValue().substr(0, 2)) + std::to_string(10 + i), group});
    }
    return sensors;
}

TemperatureInputSet allInputs() {
    TemperatureInputSet inputs;
    for (std::size_t position = 0; position < temperatureInputCount; ++position)
        inputs.insert(temperatureInputAt(position));
    return inputs;
}

/// Both inputs of all groups, with this many seconds from one time to the next.
void sample(benchmark::State& state, double secondsBetween) {
    std::int64_t reads = 0;
    SensorSampler sampler(sixGroupsOf(30), [&](const TemperatureSensor& sensor) {
        ++reads;
        return std::optional(40.0 + static_cast<double>(sensor.key.back()) / 4);
    });
    const TemperatureInputSet inputs = allInputs();
    Date now;
    sampler.sample(inputs, now);
    reads = 0;
    while (state.KeepRunning()) {
        now = now + secondsBetween;
        benchmark::DoNotOptimize(sampler.sample(inputs, now));
    }
    state.counters["reads"] =
        benchmark::Counter(static_cast<double>(reads), benchmark::Counter::kAvgIterations);
}

} // namespace

BENCHMARK_CAPTURE(sample, between, 0.0)->Name("sampler tick, 6 groups of 30, between scans");
BENCHMARK_CAPTURE(sample, scan, SensorSampler::rescanInterval)
    ->Name("sampler tick, 6 groups of 30, full scan");
