#include "Agent/Agent.h"
#include "Profiles/InMemoryPreferences.h"
#include "Profiles/InProcessNotificationCenter.h"
#include "Simulation/SimulatedClock.h"
#include "Simulation/SimulatedMac.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace tervale {
namespace {

/// An agent on a system that starts it at login, or refuses.
class LaunchAtLogin : public testing::Test {
  protected:
    LaunchAtLogin() { start(); }

    void start() {
        agent.reset();
        agent.emplace(Agent::Seams{.smc = smc,
                                   .center = center,
                                   .preferences = preferences,
                                   .clock = clock,
                                   .load = {},
                                   .loginItem = [this](bool enabled) {
                                       asked.push_back(enabled);
                                       return refusal;
                                   }});
    }
    void set(bool enabled) { Bridge(center).send(command::SetLaunchAtLogin{enabled}); }
    const BridgeState& state() const { return agent->currentState(); }

    SimulatedMac mac{{.scenario = Scenario::idle, .fillers = 0}};
    SMC smc{mac};
    InProcessNotificationCenter center;
    InMemoryPreferences preferences;
    SimulatedClock clock;
    std::vector<bool> asked;
    std::optional<std::string> refusal;
    std::optional<Agent> agent;
};

TEST_F(LaunchAtLogin, IsAskedOfTheSystem) {
    EXPECT_TRUE(asked.empty()) << "nobody has said anything";
    set(true);
    EXPECT_TRUE(state().launchAtLogin);
    set(false);
    EXPECT_FALSE(state().launchAtLogin);
    EXPECT_EQ(asked, (std::vector{true, false}));
    EXPECT_EQ(state().status, std::nullopt);
}

TEST_F(LaunchAtLogin, StaysOffWhereTheSystemRefusesItAndTellsWhyForAWhile) {
    refusal = "Operation not permitted";
    set(true);
    EXPECT_FALSE(state().launchAtLogin);
    EXPECT_EQ(state().status, "Starting at login could not be turned on: Operation not permitted");
    clock.advance(Agent::noticeDuration);
    agent->tick();
    EXPECT_EQ(state().status, std::nullopt);
    start();
    EXPECT_FALSE(state().launchAtLogin) << "nor is it stored";
}

TEST_F(LaunchAtLogin, StaysOnWhereTheSystemDoesNotEndIt) {
    set(true);
    refusal = "Operation not permitted";
    set(false);
    EXPECT_TRUE(state().launchAtLogin);
    EXPECT_EQ(state().status, "Starting at login could not be turned off: Operation not permitted");
    start();
    EXPECT_TRUE(state().launchAtLogin);
}

} // namespace
} // namespace tervale
