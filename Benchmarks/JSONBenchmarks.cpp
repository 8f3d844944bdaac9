#include "JSON/JSON.h"
#include "Profiles/Bridge.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <string>
#include <variant>

using namespace tervale;

namespace {

/// A temperature curve, a load curve and a schedule by turns, eight in all.
BridgeState stateOfEightProfiles() {
    const Curve curve{{{35, 0.0}, {50, 0.25}, {62.5, 0.4}, {75, 0.7}, {90, 1.0}}};
    const kind::Schedule schedule{{{480, 1080, action::Profile{UUID{{1}}}},
                                   {1080, 1380, action::Fixed{0.35}},
                                   {1380, 480, action::Automatic{}}}};
    const auto input = TemperatureInput::averageOf(SensorGroup::cpu);
    const std::array<ProfileKind, 3> kinds{kind::Temperature{input, curve}, kind::Load{curve},
                                           schedule};
    BridgeState state{
        action::Profile{UUID{{1}}}, action::Fixed{1.0}, Date{7e8}, "Running", true, {}};
    for (std::uint8_t id = 1; id <= 8; ++id)
        state.profiles.push_back({UUID{{id}}, "Profile " + std::to_string(id), kinds[id % 3]});
    return state;
}

void decodeState(benchmark::State& state) {
    const BridgeState sent = stateOfEightProfiles();
    const std::string text = encode(sent);
    const Decoded<BridgeState> received = decode<BridgeState>(text);
    if (!std::holds_alternative<BridgeState>(received) || std::get<BridgeState>(received) != sent)
        state.SkipWithError("the state did not come back as it was sent");
    while (state.KeepRunning())
        benchmark::DoNotOptimize(decode<BridgeState>(text));
    state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) * state.iterations());
}

void encodeState(benchmark::State& state) {
    const BridgeState sent = stateOfEightProfiles();
    while (state.KeepRunning())
        benchmark::DoNotOptimize(encode(sent));
}

} // namespace

BENCHMARK(decodeState)->Name("decode a state of 8 profiles");
BENCHMARK(encodeState)->Name("encode a state of 8 profiles");
