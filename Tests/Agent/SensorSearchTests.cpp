#include "Agent/Agent.h"
#include "Agent/SensorSearch.h"
#include "Profiles/InMemoryPreferences.h"
#include "Profiles/InProcessNotificationCenter.h"
#include "SMC/ScriptedRegistry.h"
#include "Simulation/SimulatedClock.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tervale {
namespace {

using test::ScriptedRegistry;

constexpr auto deviceError = static_cast<IORegistry::Status>(0xe00002ca);

class SensorSearchTest : public testing::Test {
  protected:
    SensorSearchTest() {
        for (const char* const key : {"Tp01", "Tp05", "Tg05"})
            registry.setFloat(key, 50);
        registry.setFixedPoint("Tp0F", 180);
        registry.setFloat("Ta0P", 40);
        registry.setKeyCount();
    }

    std::vector<std::string> keys() const {
        std::vector<std::string> names;
        for (const TemperatureSensor& sensor : search.sensors())
            names.push_back(sensor.key);
        std::ranges::sort(names);
        return names;
    }
    /// The requests of so many turns that do not read a value.
    std::size_t questionsOf(int turns) {
        registry.takeRequests();
        for (int i = 0; i < turns; ++i)
            search.turn();
        return registry.takeRequests().size();
    }

    const std::vector<std::string> all{"Tg05", "Tp01", "Tp05"};
    ScriptedRegistry registry;
    SMC smc{registry};
    SensorSearch search{smc};
};

TEST_F(SensorSearchTest, AsksNothingMoreOnceTheControllerHasAnsweredForEachKey) {
    EXPECT_TRUE(search.turn());
    EXPECT_EQ(keys(), all);
    EXPECT_EQ(questionsOf(1000), 0U);
}

TEST_F(SensorSearchTest, FindsNoSensorsAmongKeysThatCannotBeCounted) {
    for (const float count : {std::nanf(""), 3e38F, -2.0F, 1e9F}) {
        registry.setFloat("#KEY", count);
        SMC fresh(registry);
        SensorSearch other(fresh);
        EXPECT_FALSE(other.turn());
        EXPECT_TRUE(other.sensors().empty()) << count;
    }
}

TEST_F(SensorSearchTest, CountsTheKeysUntilThatSucceeds) {
    registry.fail("#KEY", ScriptedRegistry::read, {deviceError, 0});
    EXPECT_EQ(questionsOf(100), 101U) << "one call each, beside the description";
    registry.succeed("#KEY", ScriptedRegistry::read);
    EXPECT_TRUE(search.turn());
    EXPECT_EQ(keys(), all);
}

TEST_F(SensorSearchTest, FindsWhatHadNoNameAtFirst) {
    const auto index = registry.indexOf("Tp05");
    registry.failIndex(index, {deviceError, 0});
    EXPECT_TRUE(search.turn());
    EXPECT_EQ(keys(), (std::vector<std::string>{"Tg05", "Tp01"}));
    EXPECT_FALSE(search.turn());
    registry.failIndex(index, {});
    EXPECT_FALSE(search.turn()) << "it waits";
    EXPECT_TRUE(search.turn());
    EXPECT_EQ(keys(), all);
    EXPECT_EQ(questionsOf(1000), 0U);
}

TEST_F(SensorSearchTest, FindsWhatCouldNotBeDescribedAtFirst) {
    for (const char* const key : {"Tp01", "Tp05"})
        registry.fail(key, ScriptedRegistry::keyInformation, {deviceError, 0});
    EXPECT_TRUE(search.turn());
    EXPECT_EQ(keys(), std::vector<std::string>{"Tg05"});
    registry.succeed("Tp01", ScriptedRegistry::keyInformation);
    EXPECT_TRUE(search.turn());
    registry.succeed("Tp05", ScriptedRegistry::keyInformation);
    EXPECT_TRUE(search.turn());
    EXPECT_EQ(keys(), all);
    EXPECT_EQ(questionsOf(1000), 0U);
}

TEST_F(SensorSearchTest, TakesAnAnswerForOneThoughItIsNoSensor) {
    registry.fail("Tp01", ScriptedRegistry::keyInformation, {0, ScriptedRegistry::unknownKey});
    registry.set("Tp05", {"{rec", test::bytesOf({0}), 48});
    search.turn();
    EXPECT_EQ(keys(), std::vector<std::string>{"Tg05"});
    EXPECT_EQ(questionsOf(1000), 0U);
}

TEST_F(SensorSearchTest, AsksLessAndLessOftenForWhatNeverAnswers) {
    registry.fail("Tp01", ScriptedRegistry::keyInformation, {deviceError, 0});
    search.turn();
    const std::size_t first = questionsOf(64);
    EXPECT_GT(first, 0U);
    EXPECT_LE(first, 2 * 7U) << "at doubled intervals, two questions each";
    EXPECT_EQ(questionsOf(10 * SensorSearch::longestPause), 2 * 10U);
    registry.succeed("Tp01", ScriptedRegistry::keyInformation);
    questionsOf(SensorSearch::longestPause);
    EXPECT_EQ(keys(), all) << "but it is never forgotten";
}

TEST_F(SensorSearchTest, AsksASilentControllerForAFewKeysATurnAndForAllInTheEnd) {
    for (int i = 0; i < 100; ++i)
        registry.setFloat("Te" + std::to_string(100 + i).substr(1), 50);
    for (int i = 0; i < 50; ++i)
        registry.setFloat("TH" + std::to_string(100 + i).substr(1), 50);
    registry.setKeyCount();
    for (std::uint32_t index = 0; index < 100; ++index)
        registry.failIndex(index, {deviceError, 0});
    search.turn();
    EXPECT_LE(questionsOf(1), static_cast<std::size_t>(SensorSearch::mostFailures));
    for (int i = 0; i < 100; ++i)
        search.turn();
    EXPECT_TRUE(std::ranges::any_of(search.sensors(), [](const TemperatureSensor& sensor) {
        return sensor.key == "TH49";
    })) << "what fails keeps nothing else from being found";
}

/// An agent on a controller of two sensors of the CPU, of which the first enumeration finds one.
class AgentOfPartOfTheSensors : public testing::Test {
  protected:
    AgentOfPartOfTheSensors() {
        registry.setByte("FNum", 1);
        registry.setFloat("F0Ac", 1200);
        registry.setFloat("F0Tg", 1200);
        registry.setFloat("F0Mn", 1200);
        registry.setFloat("F0Mx", 6000);
        registry.setByte("F0md", 0);
        registry.setByte("Ftst", 0);
        registry.setFloat("Tp01", 50);
        registry.setFloat("Tp05", 50);
        registry.setKeyCount();
    }
    void tick(int times = 1) {
        for (int i = 0; i < times; ++i) {
            clock.advance(1);
            agent->tick();
        }
    }
    void start() {
        agent.emplace(Agent::Seams{
            .smc = smc, .center = center, .preferences = preferences, .clock = clock, .load = {}});
        Bridge(center).send(command::Select{action::Fixed{0}});
        tick(3);
    }
    bool runsAtFullSpeed() { return smc.read("F0md") != 0 && smc.read("F0Tg") == 6000; }

    ScriptedRegistry registry;
    SMC smc{registry};
    InProcessNotificationCenter center;
    InMemoryPreferences preferences;
    SimulatedClock clock;
    std::optional<Agent> agent;
};

TEST_F(AgentOfPartOfTheSensors, SeesTheHeatOfOneThatHadNoNameAtFirst) {
    registry.failIndex(registry.indexOf("Tp05"), {deviceError, 0});
    start();
    registry.failIndex(registry.indexOf("Tp05"), {});
    registry.setFloat("Tp05", 97);
    tick(4);
    EXPECT_TRUE(runsAtFullSpeed());
    EXPECT_EQ(agent->currentState().status,
              "Too hot: Max until every CPU and GPU sensor is below 85 °C.");
}

TEST_F(AgentOfPartOfTheSensors, SeesTheHeatOfOneThatCouldNotBeDescribedAtFirst) {
    registry.fail("Tp05", ScriptedRegistry::keyInformation, {deviceError, 0});
    start();
    registry.succeed("Tp05", ScriptedRegistry::keyInformation);
    registry.setFloat("Tp05", 97);
    tick(4);
    EXPECT_TRUE(runsAtFullSpeed());
}

TEST_F(AgentOfPartOfTheSensors, SeesTheHeatOfOneThatCouldNotBeReadAtFirst) {
    registry.fail("Tp05", ScriptedRegistry::read, {deviceError, 0});
    start();
    registry.succeed("Tp05", ScriptedRegistry::read);
    registry.setFloat("Tp05", 97);
    tick(static_cast<int>(SensorSampler::rescanInterval));
    EXPECT_TRUE(runsAtFullSpeed());
}

TEST_F(AgentOfPartOfTheSensors, AsksForNoKeyByIndexOrDescriptionOnceAllAreFound) {
    start();
    registry.takeRequests();
    tick(200);
    for (const std::string& request : registry.takeRequests())
        ASSERT_TRUE(request.starts_with("read ")) << request;
}

} // namespace
} // namespace tervale
