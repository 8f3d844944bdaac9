#pragma once

#include "Simulation/SimulatedMac.h"

#include <benchmark/benchmark.h>

#include <optional>

namespace tervale {

/// Reports how many calls the controller has for one iteration, which must be the same each time.
class CallsPerIteration {
  public:
    explicit CallsPerIteration(SimulatedMac& mac) : mac(mac) { mac.resetCalls(); }

    void iterationEnds(benchmark::State& state) {
        if (calls && *calls != mac.calls())
            state.SkipWithError("not every iteration makes the same calls");
        calls = mac.calls();
        mac.resetCalls();
    }
    void report(benchmark::State& state) const {
        const SimulatedMac::CallCounts counts = calls.value_or(SimulatedMac::CallCounts{});
        state.counters["calls"] = static_cast<double>(counts.total);
        state.counters["reads"] = static_cast<double>(counts.reads);
        state.counters["descriptions"] = static_cast<double>(counts.descriptions);
        state.counters["keysByIndex"] = static_cast<double>(counts.keysByIndex);
    }

  private:
    SimulatedMac& mac;
    std::optional<SimulatedMac::CallCounts> calls;
};

} // namespace tervale
