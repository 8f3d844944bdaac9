#include "Profiles/Controller.h"

#include <benchmark/benchmark.h>

#include <array>
#include <vector>

using namespace tervale;

namespace {

constexpr auto cpuAverage = TemperatureInput::averageOf(SensorGroup::cpu);
constexpr auto cpuHottest = TemperatureInput::hottestOf(SensorGroup::cpu);

const Curve curve{{{40, 0.1}, {50, 0.2}, {60, 0.3}, {65, 0.4}, {70, 0.6}, {75, 0.8}, {85, 1.0}}};
const Action followCurve = action::Profile{UUID{{7}}};
const Action followSchedule = action::Profile{UUID{{8}}};

/// The curve stands behind six others, and the schedule runs it in its last window.
std::vector<Profile> eightProfiles() {
    std::vector<Profile> profiles;
    for (std::uint8_t id = 1; id <= 7; ++id)
        profiles.push_back(
            {UUID{{id}}, "Follow the processors", kind::Temperature{cpuAverage, curve}});
    kind::Schedule schedule;
    for (std::int64_t hour = 0; hour < 12; ++hour)
        schedule.windows.push_back({hour * 60, (hour + 1) * 60, action::Fixed{0.3}});
    schedule.windows.push_back({720, 0, followCurve});
    profiles.push_back({UUID{{8}}, "By the hour", schedule});
    return profiles;
}

/// A whole tick: what must be sampled, and from readings that waver the target.
void tick(benchmark::State& state, const Action& action) {
    const std::vector<Profile> profiles = eightProfiles();
    constexpr std::array wavering{61.0, 59.5, 57.0, 72.0, 66.0, 80.0, 76.5, 55.0};
    Controller controller;
    std::size_t turn = 0;
    while (state.KeepRunning()) {
        const double celsius = wavering[turn++ % wavering.size()];
        benchmark::DoNotOptimize(Controller::needs(action, profiles, 1200));
        const Inputs inputs{{{cpuHottest, celsius + 5}, {cpuAverage, celsius}}, {}, 1200};
        benchmark::DoNotOptimize(controller.target(action, profiles, inputs));
    }
}

} // namespace

BENCHMARK_CAPTURE(tick, automatic, action::Automatic{})->Name("controller tick, automatic");
BENCHMARK_CAPTURE(tick, curve, followCurve)->Name("controller tick, curve");
BENCHMARK_CAPTURE(tick, schedule, followSchedule)->Name("controller tick, curve in a schedule");
