#include "Agent/Agent.h"
#include "Agent/StarterProfiles.h"
#include "Profiles/InMemoryPreferences.h"
#include "Profiles/InProcessNotificationCenter.h"
#include "Profiles/RandomValues.h"
#include "Simulation/Simulation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <variant>
#include <vector>

namespace tervale {
namespace {

/// What the agent should say, formulated a second time: as what is left of all it was told.
struct SlowAgent {
    struct Told {
        double at;
        BridgeCommand command;
    };
    std::vector<Told> history;

    static Action brought(Action action) {
        if (auto* fixed = std::get_if<action::Fixed>(&action))
            fixed->speed = std::min(1.0, std::max(0.0, fixed->speed));
        return action;
    }

    /// Timers end at control ticks, of which `lastTick` was the last.
    BridgeState state(double lastTick) const {
        double started = 0;
        BridgeState state;
        state.profiles = starterProfiles();
        for (const auto& [at, command] : history) {
            if (const auto* select = std::get_if<command::Select>(&command))
                state.selection = brought(select->action);
            if (const auto* save = std::get_if<command::SaveProfiles>(&command))
                state.profiles = save->profiles;
            if (const auto* launch = std::get_if<command::SetLaunchAtLogin>(&command))
                state.launchAtLogin = launch->enabled;
            const auto* timer = std::get_if<command::StartTimer>(&command);
            if (timer && timer->duration > 0 && timer->duration <= 86400) {
                started = at;
                state.timerAction = brought(timer->action);
                state.timerEnds = Date{at + timer->duration};
            }
            if (std::holds_alternative<command::CancelTimer>(command)) {
                state.timerAction.reset();
                state.timerEnds.reset();
            }
        }
        if (state.timerEnds && started < lastTick && state.timerEnds->sinceReference <= lastTick) {
            state.timerAction.reset();
            state.timerEnds.reset();
        }
        return state;
    }
};

class AgentModel : public testing::TestWithParam<std::uint64_t> {};

TEST_P(AgentModel, SaysWhatTheSlowOneSaysAndAnswersEachCommandOnce) {
    test::RandomValues values(GetParam());
    InProcessNotificationCenter center;
    InMemoryPreferences preferences;
    const SimulatedMacOptions options{.scenario = Scenario::idle, .sensors = 6, .fillers = 0};
    std::vector<BridgeState> heard;
    Bridge bridge(center);
    const ObserverToken token =
        bridge.onState([&](const BridgeState& state) { heard.push_back(state); });
    Simulation simulation(options, center, preferences, Date{12 * 3600.0});
    SlowAgent slow;
    for (int step = 0; step < 200; ++step) {
        const double now = simulation.clock().now().sinceReference;
        if (values.coin()) {
            BridgeCommand command = values.command();
            if (auto* timer = std::get_if<command::StartTimer>(&command); timer && values.coin())
                timer->duration = static_cast<double>(1 + values.below(90));
            heard.clear();
            bridge.send(command);
            ASSERT_EQ(heard.size(), 1U) << step;
            slow.history.push_back({now, command});
        } else {
            simulation.advance(static_cast<double>(1 + values.below(30)));
        }
        BridgeState state = simulation.agent()->currentState();
        // What it tells people is another matter.
        state.status.reset();
        ASSERT_EQ(state, slow.state(simulation.clock().now().sinceReference)) << step;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, AgentModel, testing::Range<std::uint64_t>(1, 21));

} // namespace
} // namespace tervale
