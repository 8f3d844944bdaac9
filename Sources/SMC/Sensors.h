#pragma once

#include "Base/ClosedRange.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tervale {

/// What a temperature sensor belongs to. One of six cases; usable in a `switch`.
class SensorGroup {
  public:
    enum Case : std::uint8_t { cpu, gpu, memory, ssd, power, other };

    constexpr SensorGroup(Case value) : value(value) {}
    constexpr operator Case() const { return value; }

    /// Every group, in declaration order.
    static const std::array<SensorGroup, 6> allCases;

    /// The group of a controller key; nothing when the key is no temperature that is shown.
    static std::optional<SensorGroup> of(std::string_view key);
    /// The group of a raw value such as "gpu"; nothing for any other text, such as
    /// "GPU".
    static std::optional<SensorGroup> fromRawValue(std::string_view rawValue);

    /// The text that stands for the group in JSON.
    std::string_view rawValue() const;
    /// The group's name for people, such as "Memory".
    std::string_view title() const;

  private:
    Case value;
};

inline constexpr std::array<SensorGroup, 6> SensorGroup::allCases{cpu, gpu,   memory,
                                                                  ssd, power, other};

/// One temperature sensor: its four-character key, and the group that the key had when it was
/// found.
struct TemperatureSensor {
    std::string key;
    SensorGroup group;

    /// The readings that are believed, in degrees Celsius.
    static constexpr ClosedRange plausible{5.0, 130.0};

    /// The sensor's name for people, such as "CPU Tp09".
    std::string name() const;

    bool operator==(const TemperatureSensor&) const = default;
};

} // namespace tervale

template <>
struct std::hash<tervale::SensorGroup> {
    std::size_t operator()(tervale::SensorGroup group) const noexcept;
};

template <>
struct std::hash<tervale::TemperatureSensor> {
    std::size_t operator()(const tervale::TemperatureSensor& sensor) const noexcept;
};
