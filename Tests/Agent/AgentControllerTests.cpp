#include "Agent/AgentFixture.h"
#include "Agent/StarterProfiles.h"
#include "Profiles/ProfileStore.h"
#include "SMC/ScriptedRegistry.h"
#include "Simulation/SimulatedClock.h"
#include "Support/BreakableCenter.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tervale {
namespace {

TEST_F(AgentTest, HandsTheFansBackInTheEndAndSaysSo) {
    send(command::Select{action::Fixed{1}});
    EXPECT_EQ(simulation->agent()->end(), std::nullopt);
    EXPECT_FALSE(fan(0).manual || fan(1).manual);
    EXPECT_EQ(last().status, "The agent has ended. The fans are automatic.");
    EXPECT_EQ(last().selection, Action(action::Fixed{1}));
}

TEST_F(AgentTest, LeavesTheFansAsTheyAreWhenItJustGoes) {
    send(command::Select{action::Fixed{1}});
    SimulatedMac mac({.scenario = Scenario::idle, .fillers = 0});
    SMC smc(mac);
    SimulatedClock clock;
    {
        Agent agent({smc, center, preferences, clock, {}});
        EXPECT_TRUE(smc.fan(0).manual);
    }
    EXPECT_TRUE(smc.fan(0).manual);
    EXPECT_EQ(answersTo(command::RequestState{}), 1U) << "the other agent alone answers";
}

TEST_F(AgentTest, TellsThatTheFansCouldNotBeHandedBackBeforeSleepUntilTheyAre) {
    EXPECT_TRUE(simulation->agent()->sleep());
    simulation->agent()->wake();
    send(command::Select{action::Fixed{1}});
    simulation->mac().failEveryCall(static_cast<IORegistry::Status>(0xe00002d8));
    EXPECT_FALSE(simulation->agent()->sleep());
    simulation->mac().failEveryCall(std::nullopt);
    EXPECT_TRUE(simulation->agent()->sleep());
    EXPECT_FALSE(fan(0).manual);
    simulation->mac().failEveryCall(static_cast<IORegistry::Status>(0xe00002d8));
    EXPECT_TRUE(simulation->agent()->sleep()) << "it holds no fan";
}

TEST_F(AgentTest, TellsThatAFanThatItFoundManualCouldNotBeHandedBackBeforeSleep) {
    SimulatedMac mac({.scenario = Scenario::idle, .fillers = 0});
    SMC smc(mac);
    SimulatedClock clock;
    ProfileStore(preferences).setSelection(action::Fixed{0.5});
    // As an agent leaves it that is killed together with its guard.
    FanDriver(smc).apply(target::Speed{0.5});
    Agent agent({smc, center, preferences, clock, {}});
    mac.inject("F0md", fault::RefusedValue{133});
    EXPECT_FALSE(agent.sleep());
    mac.heal("F0md");
    EXPECT_TRUE(agent.sleep());
    EXPECT_FALSE(smc.fan(0).manual || smc.fan(1).manual);
}

TEST_F(AgentTest, GivesWayToAnotherAgentWithoutAWord) {
    send(command::Select{action::Fixed{1}});
    const std::size_t before = heard.size();
    EXPECT_EQ(simulation->agent()->giveWay(), std::nullopt);
    EXPECT_FALSE(fan(0).manual);
    EXPECT_EQ(heard.size(), before);
    EXPECT_EQ(answersTo(command::RequestState{}), 0U);
}

TEST(AgentTrace, TellsEachDecisionCommandAndPostAndNothingAtRest) {
    SimulatedMac mac({.scenario = Scenario::idle, .fillers = 0});
    SMC smc(mac);
    BreakableCenter center;
    InMemoryPreferences preferences;
    SimulatedClock clock;
    std::vector<std::string> lines;
    Agent agent({.smc = smc,
                 .center = center,
                 .preferences = preferences,
                 .clock = clock,
                 .load = {},
                 .trace = [&](const std::string& line) { lines.push_back(line); }});
    EXPECT_EQ(lines, (std::vector<std::string>{"Fans: automatic", "The state was posted."}));
    lines.clear();
    agent.tick();
    EXPECT_TRUE(lines.empty());
    Bridge(center).send(command::Select{action::Fixed{0.5}});
    EXPECT_EQ(lines,
              (std::vector<std::string>{"Command: select", "Fans: 50%", "The state was posted."}));
    lines.clear();
    center.change(Channel::gone);
    center.change(Channel::back);
    EXPECT_EQ(lines, std::vector<std::string>{"The state was posted."});
}

TEST_F(AgentTest, KeepsAnsweringWhileTheControllerFails) {
    simulation->mac().failEveryCall(static_cast<IORegistry::Status>(0xe00002d8));
    EXPECT_EQ(answersTo(command::Select{action::Fixed{0.5}}), 1U);
    EXPECT_EQ(last().selection, Action(action::Fixed{0.5}));
    EXPECT_EQ(last().status, "FNum: IOKit error 0xe00002d8");
    simulation->advance(5);
    simulation->mac().failEveryCall(std::nullopt);
    simulation->advance(1);
    EXPECT_EQ(last().status, std::nullopt);
    EXPECT_NEAR(fan(0).target, 1200 + 0.5 * 4577, 0.01);
}

TEST(AgentOnAnOddController, LooksForNoSensorsAmongKeysThatCannotBeCounted) {
    for (const float count : {std::nanf(""), 3e38F, -2.0F, 1e9F}) {
        test::ScriptedRegistry registry;
        registry.setByte("FNum", 0);
        registry.setFloat("#KEY", count);
        SMC smc(registry);
        InProcessNotificationCenter center;
        InMemoryPreferences preferences;
        SimulatedClock clock;
        Agent agent({smc, center, preferences, clock, {}});
        agent.tick();
        EXPECT_EQ(agent.currentState().profiles, starterProfiles()) << count;
    }
}

TEST_F(AgentTest, FindsTheSensorsLaterWhenNoneAnsweredAtFirst) {
    SimulatedMac mac({.scenario = Scenario::idle, .fillers = 0});
    SMC smc(mac);
    const auto sensors = smc.temperatureSensors();
    for (const TemperatureSensor& sensor : sensors)
        mac.inject(sensor.key, fault::RefusedValue{132});
    SimulatedClock clock;
    const Profile steady = profileNamed(
        "Steady", kind::Temperature{TemperatureInput::hottestOf(SensorGroup::gpu), flatAt70});
    ProfileStore(preferences).setProfiles({steady});
    ProfileStore(preferences).setSelection(action::Profile{steady.id});
    Agent agent({smc, center, preferences, clock, {}});
    EXPECT_FALSE(smc.fan(0).manual);
    for (const TemperatureSensor& sensor : sensors)
        mac.heal(sensor.key);
    agent.tick();
    EXPECT_TRUE(smc.fan(0).manual);
}

TEST_F(AgentTest, FindsTheSensorsLaterWhenItCouldNotAtFirst) {
    SimulatedMac mac({.scenario = Scenario::idle, .fillers = 0});
    SMC smc(mac);
    mac.inject("#KEY", fault::Refused{132});
    SimulatedClock clock;
    const Profile steady = profileNamed(
        "Steady", kind::Temperature{TemperatureInput::hottestOf(SensorGroup::gpu), flatAt70});
    ProfileStore(preferences).setProfiles({steady});
    ProfileStore(preferences).setSelection(action::Profile{steady.id});
    Agent agent({smc, center, preferences, clock, {}});
    EXPECT_FALSE(smc.fan(0).manual);
    mac.heal("#KEY");
    agent.tick();
    EXPECT_TRUE(smc.fan(0).manual);
}

TEST(AgentOnAnOddController, ReadsAllSensorsEachMinuteThoughTheClockIsSetBack) {
    test::ScriptedRegistry registry;
    registry.setByte("FNum", 0);
    // More than are read between two scans, and one that is cooler than those.
    for (const char* const key : {"Tp01", "Tp05", "Tp09", "Tp0D", "Tp0H"})
        registry.setFloat(key, 60);
    registry.setFloat("Tp0L", 50);
    registry.setKeyCount();
    SMC smc(registry);
    InProcessNotificationCenter center;
    InMemoryPreferences preferences;
    SimulatedClock clock(Date{1e6});
    Agent agent({smc, center, preferences, clock, {}});
    clock.set(Date{0});
    registry.setFloat("Tp0L", 97);
    for (int second = 0; second < 61; ++second) {
        clock.advance(1);
        agent.tick();
    }
    EXPECT_EQ(agent.currentState().status,
              "Too hot: Max until every CPU and GPU sensor is below 85 °C.");
}

class AgentInAHeatwave : public AgentTest {
  protected:
    AgentInAHeatwave() : AgentTest(Scenario::heatwave) {}

    /// Seconds until the status is as wanted, or the most.
    int secondsUntil(bool tooHot, int most) {
        int seconds = 0;
        while (last().status.has_value() != tooHot && seconds < most) {
            simulation->advance(1);
            ++seconds;
        }
        return seconds;
    }
};

TEST_F(AgentInAHeatwave, RunsTheFansAtTheirMaximumUntilTheHeatIsOver) {
    ASSERT_LT(secondsUntil(true, 900), 900);
    EXPECT_EQ(last().status, "Too hot: Max until every CPU and GPU sensor is below 85 °C.");
    EXPECT_EQ(last().selection, Action(action::Automatic{}));
    EXPECT_EQ(fan(0).target, 5777);
    EXPECT_EQ(fan(1).target, 6241);
    const int cooling = secondsUntil(false, 900);
    EXPECT_GT(cooling, 10) << "a machine does not cool at once";
    ASSERT_LT(cooling, 900);
    EXPECT_FALSE(fan(0).manual);
    ASSERT_LT(secondsUntil(true, 900), 900) << "and it gets hot again";
}

TEST_F(AgentInAHeatwave, IsCalmWithTheFansAtTheirMaximumFromTheStart) {
    send(command::Select{action::Fixed{1}});
    EXPECT_EQ(secondsUntil(true, 600), 600);
}

} // namespace
} // namespace tervale
