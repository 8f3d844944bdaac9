#include "Simulation/Scenario.h"

#include "Base/Precondition.h"

#include <algorithm>
#include <utility>

namespace tervale {

namespace {

struct Parameters {
    std::string_view name;
    double room;
    Workload typical;
    /// The most by which the workload strays from second to second.
    double waves;
    /// How often a burst begins, per second, and how busy the processor is in it.
    double burstChance;
    double burstLoad;
};

const Parameters& parametersOf(Scenario scenario) {
    static constexpr Parameters idle{"idle", 24, {0.04, 0.02}, 0.02, 0.01, 0.15};
    static constexpr Parameters work{"work", 24, {0.25, 0.12}, 0.12, 0.03, 0.55};
    static constexpr Parameters render{"render", 24, {0.85, 0.65}, 0.08, 0, 0};
    static constexpr Parameters heatwave{"heatwave", 30, {1, 1}, 0.02, 0, 0};
    static constexpr Parameters dropout{"dropout", 24, {0.25, 0.12}, 0.12, 0.03, 0.55};
    static constexpr Parameters host{"host", 24, {0.04, 0.02}, 0, 0, 0};
    switch (scenario) {
    case Scenario::idle:
        return idle;
    case Scenario::work:
        return work;
    case Scenario::render:
        return render;
    case Scenario::heatwave:
        return heatwave;
    case Scenario::dropout:
        return dropout;
    case Scenario::host:
        return host;
    }
    precondition(false, "a scenario that does not exist was used");
    return idle;
}

} // namespace

std::string_view nameOf(Scenario scenario) {
    return parametersOf(scenario).name;
}

std::optional<Scenario> scenarioNamed(std::string_view name) {
    for (const Scenario scenario : allScenarios)
        if (nameOf(scenario) == name)
            return scenario;
    return std::nullopt;
}

double roomTemperature(Scenario scenario) {
    return parametersOf(scenario).room;
}

WorkloadSource::WorkloadSource(Scenario scenario, LoadReading host)
    : scenario(scenario),
      host(std::move(host)) {
    workload = typical();
}

Workload WorkloadSource::typical() const {
    return parametersOf(scenario).typical;
}

void WorkloadSource::advanceSecond(RandomSource& random) {
    if (scenario == Scenario::host) {
        // Between two readings the last one is as good as any.
        if (const auto percent = host ? host() : std::nullopt)
            follow({*percent / 100, *percent / 200}, 0.5);
        return;
    }
    const Parameters& parameters = parametersOf(scenario);
    if (burst > 0)
        --burst;
    else if (random.uniform() < parameters.burstChance)
        burst = 2 + static_cast<int>(random.below(6));
    Workload goal = parameters.typical;
    if (burst > 0)
        goal.processor = parameters.burstLoad;
    goal.processor += random.around0(parameters.waves);
    goal.graphics += random.around0(parameters.waves);
    follow(goal, 0.5);
}

void WorkloadSource::follow(Workload goal, double pace) {
    const auto approach = [pace](double from, double to) {
        return std::clamp(from + (to - from) * pace, 0.0, 1.0);
    };
    workload = {approach(workload.processor, goal.processor),
                approach(workload.graphics, goal.graphics)};
}

} // namespace tervale
