#include "Profiles/SensorSampler.h"
#include "Support/NotANumber.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <map>
#include <numeric>
#include <random>
#include <string>
#include <utility>
#include <vector>

using namespace tervale;

namespace {

using tervale::test::notANumber;
constexpr auto hottest = TemperatureInput::hottestOf(SensorGroup::cpu);
constexpr auto average = TemperatureInput::averageOf(SensorGroup::cpu);
constexpr auto hottestGPU = TemperatureInput::hottestOf(SensorGroup::gpu);
constexpr TemperatureInputSet both{hottest, average};
constexpr Date start{1000};

/// A sensor of the CPU whose key ends in a number.
TemperatureSensor cpu(int number) {
    return {"Tp" + std::to_string(number), SensorGroup::cpu};
}
TemperatureSensor gpu(int number) {
    return {"Tg" + std::to_string(number), SensorGroup::gpu};
}

/// Sensors with readings to be set, which keeps the keys of those that were read.
struct Machine {
    std::vector<TemperatureSensor> sensors;
    std::map<std::string, double> values;
    std::vector<std::string> log;

    void add(const TemperatureSensor& sensor, double value) {
        sensors.push_back(sensor);
        values[sensor.key] = value;
    }
    SensorSampler sampler() {
        return SensorSampler(sensors, [this](const TemperatureSensor& sensor) {
            log.push_back(sensor.key);
            const auto found = values.find(sensor.key);
            return found == values.end() ? std::nullopt : std::optional(found->second);
        });
    }
    std::size_t reads() { return std::exchange(log, {}).size(); }
    std::vector<std::string> keysRead() {
        std::ranges::sort(log);
        return std::exchange(log, {});
    }
};

/// Sensors 1 to `count` of the CPU, each as warm as its number says.
Machine warmedByNumber(int count) {
    Machine machine;
    for (int i = 1; i <= count; ++i)
        machine.add(cpu(i), i);
    return machine;
}

std::vector<int> spreadOver(int length, std::int64_t count) {
    std::vector<int> items(static_cast<std::size_t>(length));
    std::iota(items.begin(), items.end(), 0);
    return SensorSampler::spread<int>(items, count);
}

} // namespace

TEST(Spread, PicksEvenlyFromTheFirstToTheLast) {
    EXPECT_EQ(spreadOver(20, 8), (std::vector{0, 2, 5, 8, 10, 13, 16, 19}));
    EXPECT_EQ(spreadOver(9, 8), (std::vector{0, 1, 2, 3, 4, 5, 6, 8}));
    EXPECT_EQ(spreadOver(9, 2), (std::vector{0, 8}));
}

TEST(Spread, ReturnsShortListsAsTheyAre) {
    EXPECT_EQ(spreadOver(3, 3), (std::vector{0, 1, 2}));
    EXPECT_EQ(spreadOver(3, 8), (std::vector{0, 1, 2}));
    EXPECT_EQ(spreadOver(1, 1), (std::vector{0}));
    EXPECT_EQ(spreadOver(0, 0), std::vector<int>{});
    EXPECT_EQ(spreadOver(0, 1), std::vector<int>{});
}

TEST(Spread, PicksNothingWhenNothingIsAskedFor) {
    EXPECT_EQ(spreadOver(5, 0), std::vector<int>{});
}

TEST(Spread, StopsTheProcessForCountsThatMakeNoSense) {
    EXPECT_DEATH(spreadOver(5, -1), "negative count");
    EXPECT_DEATH(spreadOver(0, -1), "negative count");
    EXPECT_DEATH(spreadOver(5, 1), "cannot be spread");
}

TEST(SensorSampler, TellsTheHottestAndTheAverage) {
    Machine machine;
    machine.add(cpu(1), 50);
    machine.add(cpu(2), 70);
    machine.add(cpu(3), 60);
    SensorSampler sampler = machine.sampler();
    const TemperatureReadings expected{{hottest, 70}, {average, 60}};
    EXPECT_EQ(sampler.sample(both, start), expected);
    EXPECT_EQ(sampler.sample(both, start + 1), expected) << "the gap of a full panel is 0";
}

TEST(SensorSampler, YieldsTheAverageUnaskedAfterAScanOnly) {
    Machine machine = warmedByNumber(3);
    SensorSampler sampler = machine.sampler();
    EXPECT_EQ(sampler.sample({hottest}, start), (TemperatureReadings{{hottest, 3}, {average, 2}}));
    EXPECT_EQ(sampler.sample({hottest}, start + 1), (TemperatureReadings{{hottest, 3}}));
    EXPECT_EQ(sampler.sample({average}, start + 2), (TemperatureReadings{{average, 2}}));
    EXPECT_EQ(sampler.sample({average}, start + 60), (TemperatureReadings{{average, 2}}));
}

TEST(SensorSampler, CorrectsThePanelByTheGapOfTheScan) {
    Machine machine = warmedByNumber(20);
    SensorSampler sampler = machine.sampler();
    EXPECT_EQ(sampler.sample(both, start), (TemperatureReadings{{hottest, 20}, {average, 10.5}}));
    EXPECT_EQ(machine.reads(), 20U);
    // The panel of 20, 18, 15, 12, 10, 7, 4 and 1 has the mean 10.875; so the gap is -0.375.
    EXPECT_EQ(sampler.sample(both, start + 1),
              (TemperatureReadings{{hottest, 20}, {average, 10.5}}));
    EXPECT_EQ(machine.keysRead(), (std::vector<std::string>{"Tp1", "Tp10", "Tp12", "Tp15", "Tp17",
                                                            "Tp18", "Tp19", "Tp20", "Tp4", "Tp7"}));
    machine.values["Tp4"] = 12;
    machine.values["Tp5"] = 90;
    EXPECT_EQ(sampler.sample(both, start + 2),
              (TemperatureReadings{{hottest, 20}, {average, 11.5}}));
}

TEST(SensorSampler, ReadsFourSensorsBetweenScansForTheHottest) {
    Machine machine = warmedByNumber(20);
    SensorSampler sampler = machine.sampler();
    sampler.sample({hottest}, start);
    machine.reads();
    machine.values["Tp17"] = 31;
    EXPECT_EQ(sampler.sample({hottest}, start + 1), (TemperatureReadings{{hottest, 31}}));
    EXPECT_EQ(machine.keysRead(), (std::vector<std::string>{"Tp17", "Tp18", "Tp19", "Tp20"}));
}

TEST(SensorSampler, ScansAnewAtSixtySeconds) {
    Machine machine = warmedByNumber(20);
    SensorSampler sampler = machine.sampler();
    sampler.sample({hottest}, start);
    machine.reads();
    sampler.sample({hottest}, start + 59.9);
    EXPECT_EQ(machine.reads(), 4U);
    sampler.sample({hottest}, start + 60);
    EXPECT_EQ(machine.reads(), 20U);
    sampler.sample({hottest}, start + 119.5);
    EXPECT_EQ(machine.reads(), 4U) << "the age counts from the last scan";
    sampler.sample({hottest}, start + -1000000.0);
    EXPECT_EQ(machine.reads(), 4U) << "a clock set back makes no plan old";
}

TEST(SensorSampler, ScansAnewWhenAsked) {
    Machine machine = warmedByNumber(20);
    for (int i = 1; i <= 20; ++i)
        machine.add(gpu(i), 40 + i);
    SensorSampler sampler = machine.sampler();
    sampler.sample({hottest, hottestGPU}, start);
    machine.reads();
    sampler.rescan();
    sampler.sample({hottest}, start + 1);
    EXPECT_EQ(machine.reads(), 20U);
    sampler.sample({hottest, hottestGPU}, start + 2);
    EXPECT_EQ(machine.reads(), 4U + 20U);
}

TEST(SensorSampler, KeepsTheAgeOfEachGroupsPlanApart) {
    Machine machine = warmedByNumber(20);
    for (int i = 1; i <= 20; ++i)
        machine.add(gpu(i), 40 + i);
    SensorSampler sampler = machine.sampler();
    sampler.sample({hottest}, start);
    sampler.sample({hottestGPU}, start + 30);
    machine.reads();
    sampler.sample({hottest, hottestGPU}, start + 60);
    EXPECT_EQ(machine.reads(), 20U + 4U);
}

TEST(SensorSampler, ReadsTheHottestTooWhenOnlyTheAverageIsAskedFor) {
    Machine machine = warmedByNumber(20);
    SensorSampler sampler = machine.sampler();
    sampler.sample({average}, start);
    machine.reads();
    sampler.sample({average}, start + 1);
    EXPECT_EQ(machine.reads(), 10U) << "four hottest and a panel of eight, two of them the same";
}

TEST(SensorSampler, TakesAnInfiniteReadingForNone) {
    Machine machine = warmedByNumber(20);
    const auto number = machine.values.begin();
    number->second = std::numeric_limits<double>::infinity();
    SensorSampler sampler = machine.sampler();
    const auto readings = sampler.sample(both, start);
    ASSERT_TRUE(readings.at(hottest) && readings.at(average));
    EXPECT_LE(*readings.at(hottest), 20);
    EXPECT_LT(*readings.at(average), *readings.at(hottest));
}

TEST(SensorSampler, TellsNothingOfAGroupThatCannotBeRead) {
    Machine machine = warmedByNumber(20);
    SensorSampler sampler = machine.sampler();
    const auto values = std::exchange(machine.values, {});
    EXPECT_EQ(sampler.sample(both, start), TemperatureReadings());
    EXPECT_EQ(sampler.sample(both, start + 1), TemperatureReadings());
    EXPECT_EQ(machine.reads(), 40U) << "no plan is made without a reading";
    machine.values = values;
    sampler.sample(both, start + 2);
    machine.reads();
    machine.values.clear();
    EXPECT_EQ(sampler.sample(both, start + 3), TemperatureReadings());
    EXPECT_EQ(machine.reads(), 10U) << "a plan outlives a tick without readings";
}

TEST(SensorSampler, TellsNothingOfGroupsWithoutSensorsOrNotAskedFor) {
    Machine machine = warmedByNumber(2);
    SensorSampler sampler = machine.sampler();
    EXPECT_EQ(sampler.sample({hottestGPU}, start), TemperatureReadings());
    EXPECT_EQ(sampler.sample({}, start), TemperatureReadings());
    EXPECT_EQ(machine.reads(), 0U);
}

TEST(SensorSampler, LeavesOutSensorsThatAreMissingNow) {
    Machine machine = warmedByNumber(20);
    machine.values.erase("Tp20");
    SensorSampler sampler = machine.sampler();
    EXPECT_EQ(sampler.sample(both, start), (TemperatureReadings{{hottest, 19}, {average, 10}}));
    machine.values.erase("Tp19");
    machine.reads();
    EXPECT_EQ(sampler.sample({hottest}, start + 1), (TemperatureReadings{{hottest, 18}}));
    EXPECT_EQ(machine.reads(), 4U);
}

TEST(SensorSampler, HasNoAverageWhenOnlyThePanelIsMissing) {
    Machine machine = warmedByNumber(20);
    SensorSampler sampler = machine.sampler();
    sampler.sample(both, start);
    for (const char* key : {"Tp20", "Tp18", "Tp15", "Tp12", "Tp10", "Tp7", "Tp4", "Tp1"})
        machine.values.erase(key);
    EXPECT_EQ(sampler.sample(both, start + 1), (TemperatureReadings{{hottest, 19}}));
}

TEST(SensorSampler, NeverTellsAnAverageAboveTheHottest) {
    Machine machine;
    for (int i = 1; i <= 8; ++i)
        machine.add(cpu(i), 60);
    machine.add(cpu(9), 6);
    SensorSampler sampler = machine.sampler();
    // The panel leaves out one of the warm ones: the gap is 54 less 53.25.
    EXPECT_EQ(sampler.sample(both, start), (TemperatureReadings{{hottest, 60}, {average, 54}}));
    for (auto& [key, value] : machine.values)
        value = 40;
    EXPECT_EQ(sampler.sample(both, start + 1), (TemperatureReadings{{hottest, 40}, {average, 40}}));
    machine.values["Tp9"] = 24;
    EXPECT_EQ(sampler.sample(both, start + 2),
              (TemperatureReadings{{hottest, 40}, {average, 38.75}}));
}

TEST(SensorSampler, TakesNaNForAMissingReading) {
    Machine machine = warmedByNumber(20);
    for (const int number : {1, 5, 9, 20})
        machine.values["Tp" + std::to_string(number)] = notANumber;
    SensorSampler sampler = machine.sampler();
    const TemperatureReadings expected{{hottest, 19}, {average, 175.0 / 16}};
    EXPECT_EQ(sampler.sample(both, start), expected);
    EXPECT_EQ(sampler.sample(both, start + 1), expected);
}

TEST(SensorSampler, CountsASensorThatIsListedTwiceTwiceButReadsItOnceBetweenScans) {
    Machine machine;
    machine.add(cpu(1), 50);
    machine.add(cpu(2), 80);
    machine.add(cpu(2), 80);
    SensorSampler sampler = machine.sampler();
    const TemperatureReadings expected{{hottest, 80}, {average, 70}};
    EXPECT_EQ(sampler.sample(both, start), expected);
    EXPECT_EQ(machine.reads(), 3U);
    EXPECT_EQ(sampler.sample(both, start + 1), expected);
    EXPECT_EQ(machine.reads(), 2U);
}

TEST(SensorSampler, KeepsItsBoundsForAnyReadings) {
    std::mt19937 random(6);
    std::uniform_real_distribution<double> celsius(5, 130);
    for (int machines = 0; machines < 100; ++machines) {
        Machine machine;
        const int count = 1 + static_cast<int>(random() % 60);
        for (int i = 0; i < count; ++i)
            machine.add(cpu(i), celsius(random));
        SensorSampler sampler = machine.sampler();
        sampler.sample(both, start);
        EXPECT_EQ(machine.reads(), static_cast<std::size_t>(count));
        for (int second = 1; second < 60; ++second) {
            for (const TemperatureSensor& sensor : machine.sensors) {
                if (random() % 10 == 0)
                    machine.values.erase(sensor.key);
                else
                    machine.values[sensor.key] = celsius(random);
            }
            const bool wantAverage = second % 2 == 0;
            const TemperatureReadings readings =
                sampler.sample(wantAverage ? both : TemperatureInputSet{hottest}, start + second);
            EXPECT_LE(machine.reads(), wantAverage ? 12U : 4U);
            if (readings.at(average)) {
                EXPECT_LE(*readings.at(average), readings.at(hottest).value());
            }
        }
    }
}
