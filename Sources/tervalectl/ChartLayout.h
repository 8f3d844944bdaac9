#pragma once

#include "tervalectl/Chart.h"

#include <string>
#include <vector>

namespace tervale {

struct ChartRect {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;

    double right() const { return left + width; }
    double bottom() const { return top + height; }
    bool contains(double x, double y) const {
        return x >= left && x <= right() && y >= top && y <= bottom();
    }
};

struct ChartPoint {
    double x = 0;
    double y = 0;
};
/// One stretch of a line without a gap.
using ChartStretch = std::vector<ChartPoint>;

/// Where a chart has its two plots, temperatures above speeds, in a picture of this size. Lengths
/// in pixels, or whatever a picture is made of.
struct ChartLayout {
    ChartRect heat;
    ChartRect speed;
    ClosedRange celsius;

    double x(double place) const { return heat.left + place * heat.width; }
    double yOfCelsius(double value) const;
    double yOfFraction(double value) const;
};

ChartLayout chartLayout(double width, double height, ClosedRange celsius);

/// The series' line, in stretches between gaps. Of the samples within one pixel only the first, the
/// last, the least and the greatest are left.
std::vector<ChartStretch> heatLine(const Chart& chart, const ChartLayout& layout,
                                   std::optional<double> ChartSample::*value);
std::vector<ChartStretch> speedLine(const Chart& chart, const ChartLayout& layout,
                                    std::optional<double> ChartSample::*value);

/// From where to where on the x axis safety is engaged; each is at least so wide.
std::vector<ClosedRange> safetyBands(const Chart& chart, const ChartLayout& layout,
                                     double leastWidth);

/// The times of day on the x axis: at the ends and evenly between them.
struct ChartTime {
    double x = 0;
    std::string text;
};
std::vector<ChartTime> chartTimes(const Chart& chart, const ChartLayout& layout, std::size_t count);

} // namespace tervale
