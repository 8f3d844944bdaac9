#include "Profiles/InMemoryPreferences.h"
#include "Profiles/InProcessNotificationCenter.h"
#include "Simulation/Simulation.h"

#include <gtest/gtest.h>

namespace tervale {
namespace {

TEST(Simulation, TicksTheAgentOnceAVirtualSecond) {
    InProcessNotificationCenter center;
    InMemoryPreferences preferences;
    Simulation simulation({.scenario = Scenario::idle, .fillers = 0}, center, preferences);
    const auto readsOf = [&](double seconds) {
        simulation.mac().resetCalls();
        simulation.advance(seconds);
        return simulation.mac().calls().reads;
    };
    const std::size_t oneTick = readsOf(1);
    EXPECT_GT(oneTick, 0U);
    EXPECT_EQ(readsOf(0.5), 0U);
    EXPECT_EQ(readsOf(0.5), oneTick);
    EXPECT_EQ(readsOf(3), 3 * oneTick);
    std::size_t inTenths = 0;
    for (int i = 0; i < 50; ++i)
        inTenths += readsOf(0.1);
    EXPECT_EQ(inTenths, 5 * oneTick);
}

TEST(Simulation, MovesItsClockWithTheMac) {
    InProcessNotificationCenter center;
    InMemoryPreferences preferences;
    Simulation simulation({.scenario = Scenario::idle, .fillers = 0}, center, preferences,
                          Date{100});
    simulation.advance(2.5);
    EXPECT_EQ(simulation.clock().now(), Date{102.5});
}

TEST(Simulation, CanRunByAnotherClock) {
    InProcessNotificationCenter center;
    InMemoryPreferences preferences;
    SimulatedClock clock(Date{1000});
    Simulation simulation({.scenario = Scenario::idle, .fillers = 0}, center, preferences, clock);
    Bridge(center).send(command::StartTimer{action::Fixed{1}, 10});
    simulation.advance(20);
    EXPECT_TRUE(simulation.agent()->currentState().timerAction.has_value());
    clock.advance(10);
    simulation.advance(1);
    EXPECT_FALSE(simulation.agent()->currentState().timerAction.has_value());
}

TEST(Simulation, LeavesTheFansToTheFirmwareWithoutAnAgent) {
    Simulation simulation({.scenario = Scenario::heatwave, .fillers = 0});
    EXPECT_EQ(simulation.agent(), nullptr);
    simulation.advance(600);
    EXPECT_EQ(simulation.mac().calls().total, 0U);
    EXPECT_EQ(simulation.clock().now(), Date{600});
}

TEST(Simulation, KeepsTheSteadyStateCheap) {
    InProcessNotificationCenter center;
    InMemoryPreferences preferences;
    Simulation simulation({.scenario = Scenario::idle}, center, preferences);
    simulation.advance(1);
    simulation.mac().resetCalls();
    simulation.advance(1);
    // The four hottest CPU and GPU sensors each, FNum, and two modes.
    const SimulatedMac::CallCounts expected{.total = 11, .reads = 11};
    EXPECT_EQ(simulation.mac().calls(), expected);
}

TEST(SimulatedClock, BeginsItsDaysAtWholeMultiplesOfADay) {
    EXPECT_EQ(SimulatedClock(Date{0}).minuteOfDay(), 0);
    EXPECT_EQ(SimulatedClock(Date{86399.9}).minuteOfDay(), 1439);
    EXPECT_EQ(SimulatedClock(Date{86400}).minuteOfDay(), 0);
    EXPECT_EQ(SimulatedClock(Date{-60}).minuteOfDay(), 1439);
    EXPECT_EQ(SimulatedClock(Date{90 * 60}).minuteOfDay(), 90);
}

} // namespace
} // namespace tervale
