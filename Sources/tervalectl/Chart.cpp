#include "tervalectl/Chart.h"

#include <algorithm>
#include <cmath>

namespace tervale {

namespace {

/// A file may hold any number.
constexpr double hottestShown = 150;

std::optional<double> fractionOf(double value, const Fan& fan) {
    const double fraction = (value - fan.min) / (fan.max - fan.min);
    return std::isfinite(fraction) ? std::optional(std::clamp(fraction, 0.0, 1.0)) : std::nullopt;
}

template <class Counts>
std::optional<double> meanOf(std::span<const Fan> fans, double Fan::*value, Counts counts) {
    double sum = 0;
    int number = 0;
    for (const Fan& fan : fans) {
        const auto fraction = counts(fan) ? fractionOf(fan.*value, fan) : std::nullopt;
        if (!fraction)
            continue;
        sum += *fraction;
        ++number;
    }
    return number > 0 ? std::optional(sum / number) : std::nullopt;
}

double hottest(const ChartSample& sample) {
    return std::max({sample.driving.value_or(0), sample.cpu.value_or(0), sample.gpu.value_or(0)});
}

} // namespace

std::optional<double> targetOf(std::span<const Fan> fans) {
    return meanOf(fans, &Fan::target, [](const Fan& fan) { return fan.manual; });
}

ChartSample sampleOf(const MachineReading& reading) {
    ChartSample sample;
    sample.time = reading.time;
    // Time zones differ by whole minutes.
    const double second = std::fmod(std::fmod(reading.time, 60) + 60, 60);
    sample.secondOfDay = static_cast<int>(reading.minute) * 60 + static_cast<int>(second);
    sample.cpu = reading.temperatures.at(TemperatureInput::hottestOf(SensorGroup::cpu));
    sample.gpu = reading.temperatures.at(TemperatureInput::hottestOf(SensorGroup::gpu));
    if (reading.load)
        sample.load = *reading.load / 100;
    sample.speed = meanOf(reading.fans, &Fan::actual, [](const Fan&) { return true; });
    return sample;
}

void Chart::add(const ChartSample& sample) {
    inOrder =
        inOrder && std::isfinite(sample.time) && (list.empty() || list.back().time < sample.time);
    list.push_back(sample);
    if (list.size() > mostSamples)
        thin();
}

void Chart::thin() {
    std::vector<ChartSample> kept;
    for (std::size_t i = 0; i + 1 < list.size(); i += 2) {
        const bool first = hottest(list[i]) > hottest(list[i + 1]);
        kept.push_back(list[first ? i : i + 1]);
        kept.back().safety = list[i].safety || list[i + 1].safety;
    }
    if (list.size() % 2 == 1)
        kept.push_back(list.back());
    list = std::move(kept);
}

double Chart::place(std::size_t index) const {
    if (list.size() < 2)
        return 0;
    const double span = list.back().time - list.front().time;
    if (!inOrder || !std::isfinite(span))
        return static_cast<double>(index) / static_cast<double>(list.size() - 1);
    return (list[index].time - list.front().time) / span;
}

bool Chart::has(std::optional<double> ChartSample::*value) const {
    return std::ranges::any_of(
        list, [value](const ChartSample& sample) { return (sample.*value).has_value(); });
}

std::vector<ChartSeries> Chart::temperatures() const {
    std::vector<ChartSeries> series;
    std::optional<TemperatureInput> input;
    bool several = false;
    for (const ChartSample& sample : list) {
        several = several || (input && sample.input && input != sample.input);
        if (sample.input)
            input = sample.input;
    }
    if (has(&ChartSample::driving))
        series.push_back({several ? "Reading" : input->title(), &ChartSample::driving});
    const auto add = [&](SensorGroup group, std::optional<double> ChartSample::*value) {
        const TemperatureInput other = TemperatureInput::hottestOf(group);
        if (has(value) && (several || input != other))
            series.push_back({other.title(), value});
    };
    add(SensorGroup::cpu, &ChartSample::cpu);
    add(SensorGroup::gpu, &ChartSample::gpu);
    return series;
}

ClosedRange Chart::celsius() const {
    double highest = 100;
    for (const ChartSample& sample : list)
        highest = std::max(highest, hottest(sample));
    return {20, std::min(std::ceil(highest / 10) * 10, hottestShown)};
}

} // namespace tervale
