#include "Profiles/RandomValues.h"
#include "Profiles/SensorSampler.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tervale {
namespace {

using Readings = std::map<std::string, std::optional<double>>;

/// The sampler formulated a second time, slowly and by the names of the sensors.
class SlowSampler {
  public:
    explicit SlowSampler(std::vector<TemperatureSensor> sensors) : sensors(std::move(sensors)) {}

    TemperatureReadings sample(const TemperatureInputSet& inputs, double now,
                               const Readings& readings) {
        asked.clear();
        TemperatureReadings result;
        for (const SensorGroup group : SensorGroup::allCases) {
            if (!inputs.containsGroup(group))
                continue;
            const bool wantsAverage = inputs.contains(TemperatureInput::averageOf(group));
            const auto plan = plans.find(group);
            std::vector<double> values;
            std::optional<double> average;
            if (plan == plans.end() || now - plan->second.at >= 60) {
                average = scan(group, now, readings, values);
            } else {
                for (const std::string& name : plan->second.hottest)
                    take(name, readings, values);
                if (wantsAverage) {
                    std::vector<double> panel;
                    for (const std::string& name : plan->second.panel)
                        take(name, readings, panel);
                    if (!panel.empty())
                        average = mean(panel) + plan->second.gap;
                    values.insert(values.end(), panel.begin(), panel.end());
                }
            }
            if (values.empty())
                continue;
            const double hottest = *std::ranges::max_element(values);
            if (inputs.contains(TemperatureInput::hottestOf(group)))
                result.set(TemperatureInput::hottestOf(group), hottest);
            if (average)
                result.set(TemperatureInput::averageOf(group), std::min(hottest, *average));
        }
        return result;
    }

    /// Which sensors the last sample was made of.
    std::set<std::string> asked;

  private:
    struct Plan {
        double at = 0;
        std::vector<std::string> hottest;
        std::vector<std::string> panel;
        double gap = 0;
    };

    static double mean(const std::vector<double>& values) {
        double sum = 0;
        for (const double value : values)
            sum += value;
        return sum / static_cast<double>(values.size());
    }
    void take(const std::string& name, const Readings& readings, std::vector<double>& values) {
        asked.insert(name);
        if (const auto value = readings.at(name))
            values.push_back(*value);
    }
    std::optional<double> scan(SensorGroup group, double now, const Readings& readings,
                               std::vector<double>& values) {
        std::vector<std::pair<double, std::string>> ranked;
        for (const TemperatureSensor& sensor : sensors) {
            if (sensor.group != group)
                continue;
            asked.insert(sensor.key);
            if (const auto value = readings.at(sensor.key))
                ranked.emplace_back(-*value, sensor.key);
        }
        if (ranked.empty())
            return std::nullopt;
        // The names are given out in the order of the list.
        std::ranges::sort(ranked);
        Plan plan{now, {}, {}, 0};
        std::vector<double> ofPanel;
        for (std::size_t rank = 0; rank < ranked.size(); ++rank) {
            values.push_back(-ranked[rank].first);
            if (rank < 4)
                plan.hottest.push_back(ranked[rank].second);
        }
        const std::size_t count = ranked.size();
        for (std::size_t step = 0; step < std::min<std::size_t>(8, count); ++step) {
            const std::size_t rank = count <= 8 ? step : step * (count - 1) / 7;
            plan.panel.push_back(ranked[rank].second);
            ofPanel.push_back(-ranked[rank].first);
        }
        plan.gap = mean(values) - mean(ofPanel);
        plans[group] = plan;
        return mean(values);
    }

    std::vector<TemperatureSensor> sensors;
    std::map<SensorGroup, Plan> plans;
};

class SensorSamplerModel : public testing::TestWithParam<std::uint64_t> {
  protected:
    TemperatureInputSet someInputs() {
        TemperatureInputSet inputs;
        for (const TemperatureInput input : allTemperatureInputs)
            if (values.below(3) == 0)
                inputs.insert(input);
        return inputs;
    }

    test::RandomValues values{GetParam()};
};

TEST_P(SensorSamplerModel, TellsWhatTheSlowOneTellsFromTheSameSensors) {
    std::vector<TemperatureSensor> sensors;
    Readings readings;
    for (std::size_t count = values.below(60); sensors.size() < count;) {
        const std::string name = "T" + std::to_string(100 + sensors.size());
        sensors.push_back({name, SensorGroup::allCases[values.below(6)]});
        readings[name] = 40;
    }
    std::set<std::string> asked;
    SensorSampler sampler(sensors, [&](const TemperatureSensor& sensor) {
        asked.insert(sensor.key);
        return readings.at(sensor.key);
    });
    SlowSampler slow(sensors);
    double now = 1000;
    for (int tick = 0; tick < 300; ++tick) {
        now += static_cast<double>(values.below(8));
        for (auto& [name, reading] : readings) {
            if (values.below(5) == 0)
                reading = values.below(6) == 0 ? std::nullopt
                                               : std::optional(30 + 70 * values.fraction());
        }
        asked.clear();
        const TemperatureInputSet inputs = someInputs();
        const TemperatureReadings expected = slow.sample(inputs, now, readings);
        const TemperatureReadings told = sampler.sample(inputs, Date{now});
        for (const TemperatureInput input : allTemperatureInputs) {
            ASSERT_EQ(told.at(input).has_value(), expected.at(input).has_value()) << tick;
            if (told.at(input)) {
                ASSERT_NEAR(*told.at(input), *expected.at(input), 1e-9) << tick;
            }
        }
        ASSERT_EQ(asked, slow.asked) << tick;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, SensorSamplerModel, testing::Range<std::uint64_t>(1, 51));

} // namespace
} // namespace tervale
