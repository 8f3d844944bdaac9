#pragma once

#include "Profiles/TemperatureInput.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <optional>
#include <utility>

namespace tervale {

/// There are as many inputs as groups times two, so sets and maps of them are small arrays, without
/// allocation. Positions follow the order of the groups, hottest before average.
inline constexpr std::size_t temperatureInputCount = 2 * SensorGroup::allCases.size();

/// Every input, at the position that sets and maps keep it at.
constexpr TemperatureInput temperatureInputAt(std::size_t position) {
    return {SensorGroup::allCases[position / 2], position % 2 == 1};
}
constexpr std::size_t positionOf(TemperatureInput input) {
    return 2 * static_cast<std::size_t>(static_cast<SensorGroup::Case>(input.group)) +
           (input.average ? 1 : 0);
}

/// Every input, in the order of the positions.
inline constexpr auto allTemperatureInputs = [] {
    std::array<TemperatureInput, temperatureInputCount> inputs;
    for (std::size_t position = 0; position < inputs.size(); ++position)
        inputs[position] = temperatureInputAt(position);
    return inputs;
}();

static_assert(
    [] {
        for (std::size_t position = 0; position < temperatureInputCount; ++position)
            if (positionOf(allTemperatureInputs[position]) != position)
                return false;
        return true;
    }(),
    "every group has its positions");

/// A set of temperature inputs.
class TemperatureInputSet {
  public:
    constexpr TemperatureInputSet() = default;
    constexpr TemperatureInputSet(std::initializer_list<TemperatureInput> inputs) {
        for (const TemperatureInput input : inputs)
            insert(input);
    }

    constexpr void insert(TemperatureInput input) {
        members = static_cast<Members>(members | (1U << positionOf(input)));
    }
    constexpr bool contains(TemperatureInput input) const {
        return (members >> positionOf(input) & 1U) != 0;
    }
    constexpr bool containsGroup(SensorGroup group) const {
        return contains({group, false}) || contains({group, true});
    }

    bool operator==(const TemperatureInputSet&) const = default;

  private:
    using Members = std::uint16_t;
    static_assert(temperatureInputCount <= std::numeric_limits<Members>::digits,
                  "a set has a bit for every input");

    Members members = 0;
};

/// A map from temperature inputs to degrees Celsius; an input that could not be read is absent.
class TemperatureReadings {
  public:
    constexpr TemperatureReadings() = default;
    constexpr TemperatureReadings(
        std::initializer_list<std::pair<TemperatureInput, double>> readings) {
        for (const auto& [input, value] : readings)
            set(input, value);
    }

    constexpr std::optional<double> at(TemperatureInput input) const {
        return values[positionOf(input)];
    }
    constexpr void set(TemperatureInput input, double value) { values[positionOf(input)] = value; }
    constexpr void remove(TemperatureInput input) { values[positionOf(input)].reset(); }

    bool operator==(const TemperatureReadings&) const = default;

  private:
    std::array<std::optional<double>, temperatureInputCount> values{};
};

} // namespace tervale
