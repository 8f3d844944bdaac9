#pragma once

#include "Base/ClosedRange.h"
#include "Profiles/TemperatureInput.h"
#include "tervalectl/MachineReading.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tervale {

/// What a chart shows of one time. Temperatures in °C, fractions from 0 to 1; nothing where there
/// is no value.
struct ChartSample {
    /// Seconds since 1970.
    double time = 0;
    int secondOfDay = 0;
    /// What drives the fans, and its reading.
    std::optional<TemperatureInput> input{};
    std::optional<double> driving{};
    std::optional<double> cpu{};
    std::optional<double> gpu{};
    std::optional<double> load{};
    /// Nothing where the fans are the system's.
    std::optional<double> target{};
    /// The mean of the fans.
    std::optional<double> speed{};
    bool safety = false;

    bool operator==(const ChartSample&) const = default;
};

/// Temperatures, load and fans of the reading; neither what drives the fans nor their target.
ChartSample sampleOf(const MachineReading& reading);
/// The mean target of the fans that are held at theirs; nothing if none is.
std::optional<double> targetOf(std::span<const Fan> fans);

/// A line of a chart.
struct ChartSeries {
    std::string title;
    std::optional<double> ChartSample::*value = nullptr;
};

/// Readings, target and safety over time. Holds no more samples than a picture can show, however
/// many it is given: of two that stand for one another, the hotter.
class Chart {
  public:
    static constexpr std::size_t mostSamples = 20'000;

    explicit Chart(std::string title) : name(std::move(title)) {}

    void add(const ChartSample& sample);

    const std::string& title() const { return name; }
    std::span<const ChartSample> samples() const { return list; }
    /// Where a sample lies between the first and the last, from 0 to 1. By their order where their
    /// times tell none.
    double place(std::size_t index) const;

    /// The temperatures that there are, the one that drives the fans first.
    std::vector<ChartSeries> temperatures() const;
    /// Whether there is any value of it.
    bool has(std::optional<double> ChartSample::*value) const;
    /// Of the axis of temperatures, in °C: whole tens, 20 to 100 or more.
    ClosedRange celsius() const;

  private:
    void thin();

    std::string name;
    std::vector<ChartSample> list;
    bool inOrder = true;
};

} // namespace tervale
