#include "Simulation/SimulatedHardware.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace tervale {
namespace {

struct Temperatures {
    double hottest = 0;
    double average = 0;
};

SimulatedHardware hardwareIn(Scenario scenario, std::uint64_t seed = 1) {
    return {seed, scenario, {}, 2, 150};
}

Temperatures groupOf(const SimulatedHardware& hardware, SensorGroup group) {
    Temperatures temperatures;
    double count = 0;
    const SensorBank& sensors = hardware.sensors();
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

std::vector<double> readings(const SimulatedHardware& hardware) {
    std::vector<double> all{hardware.workload().processor, hardware.workload().graphics};
    for (std::size_t i = 0; i < hardware.sensors().size(); ++i)
        all.push_back(hardware.sensors().reading(i));
    for (const SimulatedFan& fan : hardware.fans())
        all.push_back(fan.actual);
    return all;
}

TEST(SimulatedHardware, RepeatsARunExactlyFromItsSeed) {
    for (const Scenario scenario : allScenarios) {
        SimulatedHardware first = hardwareIn(scenario, 7);
        SimulatedHardware second = hardwareIn(scenario, 7);
        SimulatedHardware other = hardwareIn(scenario, 8);
        first.advance(90);
        second.advance(90);
        other.advance(90);
        EXPECT_EQ(readings(first), readings(second)) << nameOf(scenario);
        EXPECT_NE(readings(first), readings(other)) << nameOf(scenario);
    }
}

TEST(SimulatedHardware, DoesNotCareInHowManyPortionsTimePasses) {
    SimulatedHardware whole = hardwareIn(Scenario::work);
    SimulatedHardware inTenths = hardwareIn(Scenario::work);
    SimulatedHardware inOddPortions = hardwareIn(Scenario::work);
    whole.advance(21);
    for (int i = 0; i < 210; ++i)
        inTenths.advance(0.1);
    for (int i = 0; i < 300; ++i)
        inOddPortions.advance(0.07);
    EXPECT_EQ(readings(whole), readings(inTenths));
    EXPECT_EQ(readings(whole), readings(inOddPortions));
}

TEST(SimulatedHardware, IsCoolAndQuietWhenIdle) {
    SimulatedHardware hardware = hardwareIn(Scenario::idle);
    for (int minute = 0; minute < 5; ++minute) {
        hardware.advance(60);
        EXPECT_NEAR(groupOf(hardware, SensorGroup::cpu).average, 42, 3);
        EXPECT_NEAR(groupOf(hardware, SensorGroup::gpu).average, 40, 3);
        EXPECT_NEAR(hardware.fans()[0].actual, 1200, 100);
    }
}

TEST(SimulatedHardware, IsWarmAtWork) {
    SimulatedHardware hardware = hardwareIn(Scenario::work);
    double busiest = 0;
    for (int minute = 0; minute < 10; ++minute) {
        hardware.advance(60);
        EXPECT_NEAR(groupOf(hardware, SensorGroup::cpu).average, 57, 5);
        EXPECT_NEAR(groupOf(hardware, SensorGroup::gpu).average, 52, 4);
    }
    for (int second = 0; second < 600; ++second) {
        hardware.advance(1);
        busiest = std::max(busiest, hardware.workload().processor);
    }
    EXPECT_GT(busiest, 0.4) << "there are bursts";
}

TEST(SimulatedHardware, IsHotButBelowTheLatchWhenRendering) {
    SimulatedHardware hardware = hardwareIn(Scenario::render);
    for (int minute = 0; minute < 10; ++minute) {
        hardware.advance(60);
        EXPECT_GT(groupOf(hardware, SensorGroup::cpu).hottest, 80);
        EXPECT_LT(groupOf(hardware, SensorGroup::cpu).hottest, 93);
        EXPECT_GT(hardware.fans()[0].actual, 2000);
    }
}

TEST(SimulatedHardware, GetsTooHotInAHeatwaveUnlessTheFansRunAtTheirMaximum) {
    SimulatedHardware hardware = hardwareIn(Scenario::heatwave);
    EXPECT_LT(groupOf(hardware, SensorGroup::cpu).hottest, 60);
    hardware.advance(420);
    EXPECT_GT(groupOf(hardware, SensorGroup::cpu).hottest, 95);
    hardware.unlock();
    for (std::size_t fan = 0; fan < 2; ++fan) {
        ASSERT_TRUE(hardware.setFanMode(fan, 1));
        hardware.setFanTarget(fan, 99999);
    }
    hardware.advance(240);
    EXPECT_LT(groupOf(hardware, SensorGroup::cpu).hottest, 84);
}

TEST(SimulatedHardware, LosesAndFindsSensorsWhenTheyDropOut) {
    SimulatedHardware hardware = hardwareIn(Scenario::dropout);
    std::size_t lost = 0;
    std::size_t found = 0;
    std::vector<bool> gone(hardware.sensors().size());
    for (int second = 0; second < 300; ++second) {
        hardware.advance(1);
        for (std::size_t i = 0; i < gone.size(); ++i) {
            const bool isGone =
                !TemperatureSensor::plausible.contains(hardware.sensors().reading(i));
            lost += isGone && !gone[i] ? 1U : 0U;
            found += !isGone && gone[i] ? 1U : 0U;
            gone[i] = isGone;
        }
    }
    EXPECT_GT(lost, 50U);
    EXPECT_GT(found, 50U);
}

TEST(SimulatedHardware, FollowsTheHostsLoad) {
    double percent = 10;
    SimulatedHardware hardware(
        1, Scenario::host, [&percent] { return std::optional(percent); }, 2, 50);
    hardware.advance(30);
    EXPECT_NEAR(hardware.workload().processor, 0.1, 0.01);
    const double before = groupOf(hardware, SensorGroup::cpu).average;
    percent = 90;
    hardware.advance(60);
    EXPECT_NEAR(hardware.workload().processor, 0.9, 0.01);
    EXPECT_GT(groupOf(hardware, SensorGroup::cpu).average, before + 10);
}

TEST(SimulatedHardware, KeepsItsLoadWhileTheHostTellsNone) {
    SimulatedHardware hardware(
        1, Scenario::host, [] { return std::optional<double>(); }, 2, 50);
    const Workload before = hardware.workload();
    hardware.advance(10);
    EXPECT_EQ(hardware.workload(), before);
}

TEST(SimulatedHardware, GivesTheSensorsOfAGroupReadingsOfTheirOwn) {
    SimulatedHardware hardware = hardwareIn(Scenario::render);
    hardware.advance(10);
    const Temperatures cpu = groupOf(hardware, SensorGroup::cpu);
    EXPECT_GT(cpu.hottest - cpu.average, 2);
    EXPECT_LT(cpu.hottest - cpu.average, 15);
}

TEST(SimulatedHardware, SpinsFansUpOverTimeNotAtOnce) {
    SimulatedHardware hardware = hardwareIn(Scenario::idle);
    const double before = hardware.fans()[0].actual;
    hardware.unlock();
    ASSERT_TRUE(hardware.setFanMode(0, 1));
    hardware.setFanTarget(0, 5000);
    EXPECT_EQ(hardware.fans()[0].actual, before);
    double last = before;
    for (int second = 0; second < 5; ++second) {
        hardware.advance(1);
        EXPECT_GT(hardware.fans()[0].actual, last);
        last = hardware.fans()[0].actual;
    }
    EXPECT_LT(last, 4900);
    hardware.advance(20);
    EXPECT_NEAR(hardware.fans()[0].actual, 5000, 10);
    EXPECT_NEAR(hardware.fans()[1].actual, 1300, 100) << "the other one is left alone";
}

TEST(SimulatedHardware, GivesFansAwayOnlyWhileUnlocked) {
    SimulatedHardware hardware = hardwareIn(Scenario::idle);
    EXPECT_FALSE(hardware.setFanMode(0, 1));
    hardware.unlock();
    EXPECT_TRUE(hardware.setFanMode(0, 1));
    hardware.setFanTarget(0, 1e9);
    EXPECT_EQ(hardware.fans()[0].target, 5777);
    hardware.lock();
    hardware.advance(30);
    EXPECT_NEAR(hardware.fans()[0].actual, 1200, 100);
}

TEST(Scenario, IsFoundByItsName) {
    for (const Scenario scenario : allScenarios)
        EXPECT_EQ(scenarioNamed(nameOf(scenario)), scenario);
    EXPECT_EQ(scenarioNamed("Idle"), std::nullopt);
}

} // namespace
} // namespace tervale
