#include "Simulation/SimulatedMachine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace tervale {
namespace {

struct Temperatures {
    double hottest = 0;
    double average = 0;
};

SimulatedMachine machineIn(Scenario scenario, std::uint64_t seed = 1) {
    return {seed, scenario, {}, 2, 150};
}

Temperatures groupOf(const SimulatedMachine& machine, SensorGroup group) {
    Temperatures temperatures;
    double count = 0;
    const SensorBank& sensors = machine.sensors();
    for (std::size_t i = 0; i < sensors.size(); ++i) {
        if (SensorGroup::of(sensors.key(i)) != group)
            continue;
        temperatures.hottest = std::max(temperatures.hottest, sensors.reading(i));
        temperatures.average += sensors.reading(i);
        ++count;
    }
    temperatures.average /= count;
    return temperatures;
}

std::vector<double> readings(const SimulatedMachine& machine) {
    std::vector<double> all{machine.workload().processor, machine.workload().graphics};
    for (std::size_t i = 0; i < machine.sensors().size(); ++i)
        all.push_back(machine.sensors().reading(i));
    for (const SimulatedFan& fan : machine.fans())
        all.push_back(fan.actual);
    return all;
}

TEST(SimulatedMachine, RepeatsARunExactlyFromItsSeed) {
    for (const Scenario scenario : allScenarios) {
        SimulatedMachine first = machineIn(scenario, 7);
        SimulatedMachine second = machineIn(scenario, 7);
        SimulatedMachine other = machineIn(scenario, 8);
        first.advance(90);
        second.advance(90);
        other.advance(90);
        EXPECT_EQ(readings(first), readings(second)) << nameOf(scenario);
        EXPECT_NE(readings(first), readings(other)) << nameOf(scenario);
    }
}

TEST(SimulatedMachine, DoesNotCareInHowManyPortionsTimePasses) {
    SimulatedMachine whole = machineIn(Scenario::work);
    SimulatedMachine inTenths = machineIn(Scenario::work);
    SimulatedMachine inOddPortions = machineIn(Scenario::work);
    whole.advance(21);
    for (int i = 0; i < 210; ++i)
        inTenths.advance(0.1);
    for (int i = 0; i < 300; ++i)
        inOddPortions.advance(0.07);
    EXPECT_EQ(readings(whole), readings(inTenths));
    EXPECT_EQ(readings(whole), readings(inOddPortions));
}

TEST(SimulatedMachine, IsCoolAndQuietWhenIdle) {
    SimulatedMachine machine = machineIn(Scenario::idle);
    for (int minute = 0; minute < 5; ++minute) {
        machine.advance(60);
        EXPECT_NEAR(groupOf(machine, SensorGroup::cpu).average, 42, 3);
        EXPECT_NEAR(groupOf(machine, SensorGroup::gpu).average, 40, 3);
        EXPECT_NEAR(machine.fans()[0].actual, 1200, 100);
    }
}

TEST(SimulatedMachine, IsWarmAtWork) {
    SimulatedMachine machine = machineIn(Scenario::work);
    double busiest = 0;
    for (int minute = 0; minute < 10; ++minute) {
        machine.advance(60);
        EXPECT_NEAR(groupOf(machine, SensorGroup::cpu).average, 57, 5);
        EXPECT_NEAR(groupOf(machine, SensorGroup::gpu).average, 52, 4);
    }
    for (int second = 0; second < 600; ++second) {
        machine.advance(1);
        busiest = std::max(busiest, machine.workload().processor);
    }
    EXPECT_GT(busiest, 0.4) << "there are bursts";
}

TEST(SimulatedMachine, IsHotButBelowTheLatchWhenRendering) {
    SimulatedMachine machine = machineIn(Scenario::render);
    for (int minute = 0; minute < 10; ++minute) {
        machine.advance(60);
        EXPECT_GT(groupOf(machine, SensorGroup::cpu).hottest, 80);
        EXPECT_LT(groupOf(machine, SensorGroup::cpu).hottest, 93);
        EXPECT_GT(machine.fans()[0].actual, 2000);
    }
}

TEST(SimulatedMachine, GetsTooHotInAHeatwaveUnlessTheFansRunAtTheirMaximum) {
    SimulatedMachine machine = machineIn(Scenario::heatwave);
    EXPECT_LT(groupOf(machine, SensorGroup::cpu).hottest, 60);
    machine.advance(420);
    EXPECT_GT(groupOf(machine, SensorGroup::cpu).hottest, 95);
    machine.unlock();
    for (std::size_t fan = 0; fan < 2; ++fan) {
        ASSERT_TRUE(machine.setFanMode(fan, 1));
        machine.setFanTarget(fan, 99999);
    }
    machine.advance(240);
    EXPECT_LT(groupOf(machine, SensorGroup::cpu).hottest, 84);
}

TEST(SimulatedMachine, LosesAndFindsSensorsWhenTheyDropOut) {
    SimulatedMachine machine = machineIn(Scenario::dropout);
    std::size_t lost = 0;
    std::size_t found = 0;
    std::vector<bool> gone(machine.sensors().size());
    for (int second = 0; second < 300; ++second) {
        machine.advance(1);
        for (std::size_t i = 0; i < gone.size(); ++i) {
            const bool isGone =
                !TemperatureSensor::plausible.contains(machine.sensors().reading(i));
            lost += isGone && !gone[i] ? 1U : 0U;
            found += !isGone && gone[i] ? 1U : 0U;
            gone[i] = isGone;
        }
    }
    EXPECT_GT(lost, 50U);
    EXPECT_GT(found, 50U);
}

TEST(SimulatedMachine, FollowsTheHostsLoad) {
    double percent = 10;
    SimulatedMachine machine(
        1, Scenario::host, [&percent] { return std::optional(percent); }, 2, 50);
    machine.advance(30);
    EXPECT_NEAR(machine.workload().processor, 0.1, 0.01);
    const double before = groupOf(machine, SensorGroup::cpu).average;
    percent = 90;
    machine.advance(60);
    EXPECT_NEAR(machine.workload().processor, 0.9, 0.01);
    EXPECT_GT(groupOf(machine, SensorGroup::cpu).average, before + 10);
}

TEST(SimulatedMachine, KeepsItsLoadWhileTheHostTellsNone) {
    SimulatedMachine machine(
        1, Scenario::host, [] { return std::optional<double>(); }, 2, 50);
    const Workload before = machine.workload();
    machine.advance(10);
    EXPECT_EQ(machine.workload(), before);
}

TEST(SimulatedMachine, GivesTheSensorsOfAGroupReadingsOfTheirOwn) {
    SimulatedMachine machine = machineIn(Scenario::render);
    machine.advance(10);
    const Temperatures cpu = groupOf(machine, SensorGroup::cpu);
    EXPECT_GT(cpu.hottest - cpu.average, 2);
    EXPECT_LT(cpu.hottest - cpu.average, 15);
}

TEST(SimulatedMachine, SpinsFansUpOverTimeNotAtOnce) {
    SimulatedMachine machine = machineIn(Scenario::idle);
    const double before = machine.fans()[0].actual;
    machine.unlock();
    ASSERT_TRUE(machine.setFanMode(0, 1));
    machine.setFanTarget(0, 5000);
    EXPECT_EQ(machine.fans()[0].actual, before);
    double last = before;
    for (int second = 0; second < 5; ++second) {
        machine.advance(1);
        EXPECT_GT(machine.fans()[0].actual, last);
        last = machine.fans()[0].actual;
    }
    EXPECT_LT(last, 4900);
    machine.advance(20);
    EXPECT_NEAR(machine.fans()[0].actual, 5000, 10);
    EXPECT_NEAR(machine.fans()[1].actual, 1300, 100) << "the other one is left alone";
}

TEST(SimulatedMachine, GivesFansAwayOnlyWhileUnlocked) {
    SimulatedMachine machine = machineIn(Scenario::idle);
    EXPECT_FALSE(machine.setFanMode(0, 1));
    machine.unlock();
    EXPECT_TRUE(machine.setFanMode(0, 1));
    machine.setFanTarget(0, 1e9);
    EXPECT_EQ(machine.fans()[0].target, 5777);
    machine.lock();
    machine.advance(30);
    EXPECT_NEAR(machine.fans()[0].actual, 1200, 100);
}

TEST(Scenario, IsFoundByItsName) {
    for (const Scenario scenario : allScenarios)
        EXPECT_EQ(scenarioNamed(nameOf(scenario)), scenario);
    EXPECT_EQ(scenarioNamed("Idle"), std::nullopt);
}

} // namespace
} // namespace tervale
