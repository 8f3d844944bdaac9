#pragma once

#include "Agent/Agent.h"
#include "Profiles/InMemoryPreferences.h"
#include "Profiles/InProcessNotificationCenter.h"
#include "Simulation/Simulation.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tervale {

inline const Curve flatAt70{{{0, 0.7}, {100, 0.7}}};

inline Profile profileNamed(const std::string& name, ProfileKind kind) {
    return {UUID::random(), name, std::move(kind)};
}

/// An agent on a simulated Mac at noon in virtual time, and what a window would hear of it.
class AgentTest : public testing::Test {
  protected:
    explicit AgentTest(Scenario scenario = Scenario::idle) : scenario(scenario) { start(); }

    void start() {
        simulation.reset();
        simulation =
            std::make_unique<Simulation>(SimulatedMacOptions{.scenario = scenario, .fillers = 50},
                                         center, preferences, Date{12 * 3600.0});
    }
    void send(const BridgeCommand& command) { Bridge(center).send(command); }
    const BridgeState& last() const { return heard.back(); }
    /// What the command makes the agent publish.
    std::size_t answersTo(const BridgeCommand& command) {
        const std::size_t before = heard.size();
        send(command);
        return heard.size() - before;
    }
    Fan fan(std::int64_t index) { return SMC(simulation->mac()).fan(index); }

    Scenario scenario;
    InProcessNotificationCenter center;
    InMemoryPreferences preferences;
    std::vector<BridgeState> heard;
    ObserverToken token =
        Bridge(center).onState([this](const BridgeState& state) { heard.push_back(state); });
    std::unique_ptr<Simulation> simulation;
};

} // namespace tervale
