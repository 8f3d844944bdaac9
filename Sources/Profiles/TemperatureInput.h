#pragma once

#include "JSON/JSONForward.h"
#include "SMC/Sensors.h"

#include <cstddef>
#include <functional>
#include <string>

namespace tervale {

/// Which temperature feeds a temperature curve: a group's hottest sensor or the mean of its
/// sensors.
struct TemperatureInput {
    SensorGroup group = SensorGroup::cpu;
    bool average = false;

    static constexpr TemperatureInput hottestOf(SensorGroup group) { return {group, false}; }
    static constexpr TemperatureInput averageOf(SensorGroup group) { return {group, true}; }
    /// The input that stands for the group where one number is shown for it.
    static constexpr TemperatureInput headline(SensorGroup group) {
        return {group, averaged(group)};
    }
    /// Whether the group's natural single reading is its mean: so for CPU and GPU.
    static constexpr bool averaged(SensorGroup group) {
        return group == SensorGroup::cpu || group == SensorGroup::gpu;
    }

    /// The input's name for people, such as "CPU average".
    std::string title() const;

    bool operator==(const TemperatureInput&) const = default;
};

void write(JSONWriter& json, SensorGroup group);
void write(JSONWriter& json, const TemperatureInput& input);
SensorGroup read(const JSONReader& json, Type<SensorGroup>);
TemperatureInput read(const JSONReader& json, Type<TemperatureInput>);

} // namespace tervale

template <>
struct std::hash<tervale::TemperatureInput> {
    std::size_t operator()(const tervale::TemperatureInput& input) const noexcept;
};
