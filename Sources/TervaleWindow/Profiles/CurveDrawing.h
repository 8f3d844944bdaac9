#pragma once

#include "TervaleWindow/Profiles/CurveEditing.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tervale {

/// Where everything of a curve's plot lies, and what its labels say; knows no toolkit.
struct CurveDrawing {
    static constexpr double knotRadius = 6;
    static constexpr double draggedKnotRadius = 7.5;
    static constexpr std::size_t speedLines = 5;
    static constexpr std::size_t unitLabels = 6;

    struct Label {
        PlotPoint middle;
        std::string text;
        bool operator==(const Label&) const = default;
    };
    /// The line of the current input value, which may be beside the plot.
    struct Marker {
        double value = 0;
        double x = 0;
        std::string text;
        /// The middle of the text's edge that faces the line, to the right of the line.
        PlotPoint leading;
        bool operator==(const Marker&) const = default;
    };
    struct Knot {
        PlotPoint middle;
        double radius = 0;
        double x = 0;
        bool chosen = false;
        /// The pointer is at it.
        bool hovered = false;
        bool operator==(const Knot&) const = default;
    };

    PlotRect plot;
    ClosedRange range;
    /// Whether x is processor load rather than a temperature.
    bool load = false;
    /// The height of each horizontal line of the grid, from speed 0 up.
    std::array<double, speedLines> grid{};
    std::array<Label, speedLines> speeds;
    std::array<Label, unitLabels> units;
    /// From the plot's left edge to its right; empty for a curve without points.
    std::vector<PlotPoint> line;
    std::optional<Marker> marker;
    std::vector<Knot> knots;
};

bool isLoadUnit(std::string_view unit);
/// What follows a value of x where room is short: "%" or "°".
std::string unitMark(std::string_view unit);
/// A number without its fraction, rounded, halves away from zero.
std::string wholeNumber(double value);
/// A value of x with its unit: "60 °C".
std::string unitText(double x, std::string_view unit);
/// A speed in percent.
std::string speedText(double speed);
/// A point as it is spoken and shown: "60 °C, 35%".
std::string positionText(const CurvePoint& point, std::string_view unit);

CurveDrawing drawingOf(const CurveEditing& editing, std::string_view unit,
                       std::optional<double> marker, const PlotRect& plot);

} // namespace tervale
