#include "tervalectl/ChartLayout.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace tervale {

namespace {

/// The first, least, greatest and last of the points in a pixel, in their order.
class Thinner {
  public:
    void add(ChartPoint point) {
        if (!pixel.empty() && std::floor(point.x) != std::floor(pixel.front().x))
            flush();
        pixel.push_back(point);
    }
    std::vector<ChartStretch> takeStretches() {
        end();
        return std::move(stretches);
    }
    void end() {
        flush();
        if (!stretch.empty())
            stretches.push_back(std::move(stretch));
        stretch = {};
    }

  private:
    void flush() {
        if (pixel.size() <= 4) {
            stretch.insert(stretch.end(), pixel.begin(), pixel.end());
        } else {
            auto [low, high] = std::ranges::minmax_element(pixel, {}, &ChartPoint::y);
            stretch.push_back(pixel.front());
            stretch.push_back(low < high ? *low : *high);
            stretch.push_back(low < high ? *high : *low);
            stretch.push_back(pixel.back());
        }
        pixel.clear();
    }

    std::vector<ChartPoint> pixel;
    ChartStretch stretch;
    std::vector<ChartStretch> stretches;
};

template <class Height>
std::vector<ChartStretch> line(const Chart& chart, const ChartLayout& layout,
                               std::optional<double> ChartSample::*value, Height height) {
    Thinner thinner;
    for (std::size_t i = 0; i < chart.samples().size(); ++i) {
        const auto number = chart.samples()[i].*value;
        if (number && std::isfinite(*number))
            thinner.add({layout.x(chart.place(i)), height(*number)});
        else
            thinner.end();
    }
    return thinner.takeStretches();
}

/// To the minute for more than a quarter of an hour.
std::string timeText(int secondOfDay, bool seconds) {
    // As long as three numbers of any size, which is what the compiler reckons with.
    char text[48];
    if (seconds)
        std::snprintf(text, sizeof text, "%02d:%02d:%02d", secondOfDay / 3600,
                      secondOfDay / 60 % 60, secondOfDay % 60);
    else
        std::snprintf(text, sizeof text, "%02d:%02d", secondOfDay / 3600, secondOfDay / 60 % 60);
    return text;
}

} // namespace

double ChartLayout::yOfCelsius(double value) const {
    const double fraction = (value - celsius.lower) / celsius.span();
    return heat.bottom() - std::clamp(fraction, 0.0, 1.0) * heat.height;
}

double ChartLayout::yOfFraction(double value) const {
    return speed.bottom() - std::clamp(value, 0.0, 1.0) * speed.height;
}

ChartLayout chartLayout(double width, double height, ClosedRange celsius) {
    constexpr double left = 56;
    constexpr double right = 28;
    constexpr double top = 78;
    constexpr double between = 30;
    constexpr double bottom = 44;
    const double plots = height - top - between - bottom;
    const double heat = std::round(plots * 0.6);
    return {.heat = {left, top, width - left - right, heat},
            .speed = {left, top + heat + between, width - left - right, plots - heat},
            .celsius = celsius};
}

std::vector<ChartStretch> heatLine(const Chart& chart, const ChartLayout& layout,
                                   std::optional<double> ChartSample::*value) {
    return line(chart, layout, value, [&](double number) { return layout.yOfCelsius(number); });
}

std::vector<ChartStretch> speedLine(const Chart& chart, const ChartLayout& layout,
                                    std::optional<double> ChartSample::*value) {
    return line(chart, layout, value, [&](double number) { return layout.yOfFraction(number); });
}

std::vector<ClosedRange> safetyBands(const Chart& chart, const ChartLayout& layout,
                                     double leastWidth) {
    std::vector<ClosedRange> bands;
    const auto samples = chart.samples();
    for (std::size_t i = 0; i < samples.size(); ++i) {
        if (!samples[i].safety)
            continue;
        const double from = layout.x(chart.place(i));
        while (i < samples.size() && samples[i].safety)
            ++i;
        const double end = layout.x(chart.place(std::min(i, samples.size() - 1)));
        const double to = std::min(std::max(end, from + leastWidth), layout.heat.right());
        bands.push_back({std::min(from, to - leastWidth), to});
    }
    return bands;
}

std::vector<ChartTime> chartTimes(const Chart& chart, const ChartLayout& layout,
                                  std::size_t count) {
    const auto samples = chart.samples();
    if (samples.empty())
        return {};
    constexpr double quarterOfAnHour = 900;
    const bool seconds = !(samples.back().time - samples.front().time > quarterOfAnHour);
    std::vector<ChartTime> times;
    std::size_t index = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const double place = static_cast<double>(i) / static_cast<double>(count - 1);
        while (index + 1 < samples.size() && chart.place(index) < place)
            ++index;
        const double x = layout.x(chart.place(index));
        if (times.empty() || x > times.back().x)
            times.push_back({x, timeText(samples[index].secondOfDay, seconds)});
    }
    return times;
}

} // namespace tervale
