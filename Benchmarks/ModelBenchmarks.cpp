#include "CallsPerIteration.h"
#include "Profiles/Bridge.h"
#include "Profiles/InProcessNotificationCenter.h"
#include "Profiles/SensorSampler.h"
#include "SimulatedKeys.h"
#include "Simulation/SimulatedClock.h"
#include "TervaleWindow/Model/Model.h"

#include <benchmark/benchmark.h>

using namespace tervale;

namespace {

class AlwaysVisible final : public Visibility {
  public:
    bool visible() const override { return true; }
};

/// A model that has made its first poll and full scan.
struct OpenWindow {
    SimulatedMac mac{macOfKeys(2000)};
    InProcessNotificationCenter center;
    Bridge bridge{center};
    SimulatedClock clock;
    AlwaysVisible visibility;
    Model model{mac, bridge, clock, visibility};
};

/// With this many seconds from one poll to the next.
void poll(benchmark::State& state, double secondsBetween) {
    OpenWindow window;
    window.model.refresh();
    CallsPerIteration calls(window.mac);
    while (state.KeepRunning()) {
        window.clock.advance(secondsBetween);
        window.model.refresh();
        calls.iterationEnds(state);
    }
    calls.report(state);
}

void readAllSensors(benchmark::State& state) {
    OpenWindow window;
    window.model.readAllSensors();
    CallsPerIteration calls(window.mac);
    while (state.KeepRunning()) {
        window.model.readAllSensors();
        calls.iterationEnds(state);
    }
    calls.report(state);
    state.counters["sensors"] = static_cast<double>(window.model.sensors().size());
}

} // namespace

BENCHMARK_CAPTURE(poll, between, 0.0)->Name("poll, between scans")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(poll, scan, SensorSampler::rescanInterval)
    ->Name("poll, full scan")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(readAllSensors)->Name("sensors pass, every sensor")->Unit(benchmark::kMicrosecond);
