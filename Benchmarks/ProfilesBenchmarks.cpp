#include "OpenProfilesPane.h"

#include <benchmark/benchmark.h>

using namespace tervale;

namespace {

void dragAPoint(benchmark::State& state) {
    OpenProfilesPane pane(static_cast<std::size_t>(state.range(0)));
    while (state.KeepRunning())
        pane.drag();
    state.counters["validations"] =
        static_cast<double>(pane.validations) / static_cast<double>(state.iterations());
}

} // namespace

BENCHMARK(dragAPoint)
    ->Name("drag of 100 moves, profiles")
    ->Arg(1)
    ->Arg(40)
    ->Arg(400)
    ->Unit(benchmark::kMillisecond);
