#include "CallsPerIteration.h"
#include "SMC/SMC.h"
#include "SimulatedKeys.h"

#include <benchmark/benchmark.h>

using namespace tervale;

namespace {

/// On a connection of its own, since a connection remembers the descriptions of keys.
void discover(benchmark::State& state) {
    SimulatedMac mac(macOfKeys(2000));
    CallsPerIteration calls(mac);
    std::size_t found = 0;
    while (state.KeepRunning()) {
        found = SMC(mac).temperatureSensors().size();
        calls.iterationEnds(state);
    }
    calls.report(state);
    state.counters["keys"] = static_cast<double>(mac.keyCount());
    state.counters["sensors"] = static_cast<double>(found);
}

void readFans(benchmark::State& state) {
    SimulatedMac mac(macOfKeys(2000));
    SMC smc(mac);
    benchmark::DoNotOptimize(smc.fans());
    CallsPerIteration calls(mac);
    while (state.KeepRunning()) {
        benchmark::DoNotOptimize(smc.fans());
        calls.iterationEnds(state);
    }
    calls.report(state);
}

} // namespace

BENCHMARK(discover)->Name("discovery over 2000 keys")->Unit(benchmark::kMicrosecond);
BENCHMARK(readFans)->Name("fans, 2 of them")->Unit(benchmark::kMicrosecond);
