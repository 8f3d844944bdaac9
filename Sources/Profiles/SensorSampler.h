#pragma once

#include "Base/Precondition.h"
#include "Profiles/Clock.h"
#include "Profiles/TemperatureInputs.h"
#include "SMC/Sensors.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace tervale {

/// Tells the hottest and the average temperature of sensor groups without reading every sensor each
/// time. Once a minute a group is scanned in full; in between only its hottest sensors are read,
/// and for an average a panel of sensors spread over the group, corrected by the gap between the
/// panel's average and the group's at the last scan.
///
/// The list of sensors is fixed. One thread at a time; `Read` is called from `sample`.
class SensorSampler {
  public:
    /// Degrees Celsius of a sensor; nothing, or NaN, when it cannot be read now.
    using Read = std::function<std::optional<double>(const TemperatureSensor&)>;

    /// How many of the hottest sensors are read between scans.
    static constexpr std::int64_t representatives = 4;
    /// How many sensors stand for a group's average between scans.
    static constexpr std::int64_t averagePanel = 8;
    /// The age in seconds at which a group is scanned anew.
    static constexpr double rescanInterval = 60.0;

    SensorSampler(std::span<const TemperatureSensor> sensors, Read read);

    /// The readings of the inputs; one that cannot be answered is absent. A full scan also yields
    /// the average of its group when only the hottest was asked for.
    TemperatureReadings sample(const TemperatureInputSet& inputs, Date now);
    /// Makes the next `sample` scan every group that it touches.
    void rescan();

    /// `count` items spread evenly from the first to the last, or all if there are no more. A
    /// negative count is a programming error, and so is 1 for more than one item.
    template <class Element>
    static std::vector<Element> spread(std::span<const Element> items, std::int64_t count);

  private:
    /// What a group's readings come to; nothing where there are none.
    struct Summary {
        std::optional<double> hottest;
        std::optional<double> average;
    };
    /// Positions are those of the group's list in `byGroup`.
    struct Plan {
        std::vector<std::size_t> hottest;
        std::vector<std::size_t> panel;
        /// The group's average less the panel's at the scan, in degrees.
        double gap = 0;
        Date scannedAt;
    };

    /// Reads only the plan's sensors.
    Summary follow(const Plan& plan, SensorGroup group, bool wantAverage) const;
    /// Reads every sensor of the group and makes its plan.
    Summary scan(SensorGroup group, Date now);

    std::array<std::vector<TemperatureSensor>, SensorGroup::allCases.size()> byGroup;
    Read read;
    std::array<std::optional<Plan>, SensorGroup::allCases.size()> plans;
};

template <class Element>
std::vector<Element> SensorSampler::spread(std::span<const Element> items, std::int64_t count) {
    precondition(count >= 0, "a negative count of items was asked for");
    const auto length = static_cast<std::int64_t>(items.size());
    if (count >= length)
        return {items.begin(), items.end()};
    std::vector<Element> picked;
    precondition(count != 1, "a single item cannot be spread from the first to the last");
    picked.reserve(static_cast<std::size_t>(count));
    for (std::int64_t i = 0; i < count; ++i)
        picked.push_back(items[static_cast<std::size_t>(i * (length - 1) / (count - 1))]);
    return picked;
}

} // namespace tervale
