#include "Profiles/SensorSampler.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tervale {

namespace {

static_assert(temperatureInputCount <= 16, "a set of inputs has 16 bits; let it have more");

std::size_t indexOf(SensorGroup group) {
    return static_cast<std::size_t>(static_cast<SensorGroup::Case>(group));
}

/// For every sensor of a list its position, or that of the first one equal to it: a sensor that is
/// listed twice has one reading, but counts twice.
std::vector<std::size_t> positionsIn(std::span<const TemperatureSensor> sensors) {
    std::vector<std::size_t> positions;
    positions.reserve(sensors.size());
    for (const TemperatureSensor& sensor : sensors) {
        const auto first = std::ranges::find(sensors, sensor);
        positions.push_back(static_cast<std::size_t>(first - sensors.begin()));
    }
    return positions;
}

/// The readings of a group's sensors at one time, by position.
class GroupReadings {
  public:
    GroupReadings(std::span<const TemperatureSensor> sensors, const SensorSampler::Read& read)
        : sensors(sensors),
          read(read),
          values(sensors.size()) {}

    void take(std::size_t position) {
        std::optional<double> value = read(sensors[position]);
        // What is no finite number can be neither sorted nor averaged.
        if (value && !std::isfinite(*value))
            value.reset();
        values[position] = value;
    }

    /// Those of `positions` that have a reading, in the same order.
    std::vector<std::size_t> present(std::vector<std::size_t> positions) const {
        std::erase_if(positions, [&](std::size_t position) { return !values[position]; });
        return positions;
    }
    /// The mean over `positions`, which have readings; nothing if there are none.
    std::optional<double> mean(std::span<const std::size_t> positions) const {
        if (positions.empty())
            return std::nullopt;
        double sum = 0;
        for (const std::size_t position : positions)
            sum += at(position);
        return sum / static_cast<double>(positions.size());
    }
    std::optional<double> hottest() const {
        // A missing reading is less than any other.
        return values.empty() ? std::nullopt : *std::ranges::max_element(values);
    }
    double at(std::size_t position) const { return values[position].value(); }

  private:
    std::span<const TemperatureSensor> sensors;
    const SensorSampler::Read& read;
    std::vector<std::optional<double>> values;
};

} // namespace

SensorSampler::SensorSampler(std::span<const TemperatureSensor> sensors, Read read)
    : read(std::move(read)) {
    for (const TemperatureSensor& sensor : sensors)
        byGroup[indexOf(sensor.group)].push_back(sensor);
}

TemperatureReadings SensorSampler::sample(const TemperatureInputSet& inputs, Date now) {
    TemperatureReadings result;
    for (const SensorGroup group : SensorGroup::allCases) {
        if (!inputs.containsGroup(group))
            continue;
        const auto hottestInput = TemperatureInput::hottestOf(group);
        const auto averageInput = TemperatureInput::averageOf(group);
        const std::optional<Plan>& plan = plans[indexOf(group)];
        // A negative age, from a clock that was set back, counts as fresh.
        const Summary summary = plan && now - plan->scannedAt < rescanInterval
                                    ? follow(*plan, group, inputs.contains(averageInput))
                                    : scan(group, now);
        if (!summary.hottest)
            continue;
        if (inputs.contains(hottestInput))
            result.set(hottestInput, *summary.hottest);
        if (summary.average)
            result.set(averageInput, std::min(*summary.hottest, *summary.average));
    }
    return result;
}

void SensorSampler::rescan() {
    plans = {};
}

SensorSampler::Summary SensorSampler::follow(const Plan& plan, SensorGroup group,
                                             bool wantAverage) const {
    std::vector<std::size_t> wanted = plan.hottest;
    if (wantAverage)
        wanted.insert(wanted.end(), plan.panel.begin(), plan.panel.end());
    std::ranges::sort(wanted);
    wanted.erase(std::unique(wanted.begin(), wanted.end()), wanted.end());

    GroupReadings readings(byGroup[indexOf(group)], read);
    for (const std::size_t position : wanted)
        readings.take(position);
    std::optional<double> average;
    if (wantAverage)
        average = readings.mean(readings.present(plan.panel));
    if (average)
        *average += plan.gap;
    return {readings.hottest(), average};
}

SensorSampler::Summary SensorSampler::scan(SensorGroup group, Date now) {
    const std::vector<TemperatureSensor>& sensors = byGroup[indexOf(group)];
    const std::vector<std::size_t> positions = positionsIn(sensors);
    GroupReadings readings(sensors, read);
    for (const std::size_t position : positions)
        readings.take(position);
    std::vector<std::size_t> present = readings.present(positions);
    std::ranges::stable_sort(present, std::ranges::greater{},
                             [&](std::size_t position) { return readings.at(position); });
    const std::optional<double> average = readings.mean(present);
    if (!average)
        return {};

    std::vector<std::size_t> panel = spread<std::size_t>(present, averagePanel);
    const double gap = *average - readings.mean(panel).value();
    present.resize(std::min(present.size(), static_cast<std::size_t>(representatives)));
    plans[indexOf(group)] = Plan{std::move(present), std::move(panel), gap, now};
    return {readings.hottest(), average};
}

} // namespace tervale
