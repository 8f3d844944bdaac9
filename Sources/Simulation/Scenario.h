#pragma once

#include "Profiles/LoadReading.h"
#include "Simulation/RandomSource.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

namespace tervale {

/// What the simulated machine is doing.
enum class Scenario : std::uint8_t {
    /// Next to nothing.
    idle,
    /// Everyday work, with bursts.
    work,
    /// Processor and graphics busy for long.
    render,
    /// Everything busy in a hot room: under automatic control it gets too hot.
    heatwave,
    /// Work, while sensors come and go.
    dropout,
    /// As busy as the machine that the simulation runs on.
    host,
};

inline constexpr std::array allScenarios{Scenario::idle,     Scenario::work,    Scenario::render,
                                         Scenario::heatwave, Scenario::dropout, Scenario::host};

/// The scenario's name as it is written in the code.
std::string_view nameOf(Scenario scenario);
std::optional<Scenario> scenarioNamed(std::string_view name);
/// The temperature of the room, in degrees Celsius.
double roomTemperature(Scenario scenario);

/// How busy the machine is, in fractions from 0 to 1.
struct Workload {
    double processor = 0;
    double graphics = 0;

    bool operator==(const Workload&) const = default;
};

/// The workload of a scenario as it goes up and down.
class WorkloadSource {
  public:
    /// `host` is asked once a virtual second, in the scenario of that name only.
    WorkloadSource(Scenario scenario, LoadReading host);

    /// The scenario's workload with neither waves nor bursts.
    Workload typical() const;
    const Workload& current() const { return workload; }
    /// Moves on by one virtual second.
    void advanceSecond(RandomSource& random);

  private:
    void follow(Workload goal, double pace);

    Scenario scenario;
    LoadReading host;
    Workload workload;
    /// How many seconds the present burst still lasts.
    int burst = 0;
};

} // namespace tervale
