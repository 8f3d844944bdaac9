#include "TervaleWindow/Profiles/CurveDrawing.h"

#include "Base/Precondition.h"

#include <algorithm>

namespace tervale {

namespace {

constexpr double speedLabelOffset = 20;
constexpr double unitLabelOffset = 13;
constexpr double markerLabelOffset = 5;
constexpr double markerLabelDrop = 7;
constexpr double largestShown = 1e6;
/// Beyond it no canvas reaches; NaN is outside too.
constexpr ClosedRange plottable{-largestShown, largestShown};

std::string percentText(double fraction) {
    return wholeNumber(fraction * 100) + "%";
}

void layAxes(CurveDrawing& drawing, const CurvePlot& plot, const std::string& mark) {
    for (std::size_t line = 0; line < CurveDrawing::speedLines; ++line) {
        const double speed = static_cast<double>(line) / (CurveDrawing::speedLines - 1);
        drawing.grid[line] = plot.positionOfSpeed(speed);
        drawing.speeds[line] = {{plot.rect.left - speedLabelOffset, drawing.grid[line]},
                                percentText(speed)};
    }
    for (std::size_t label = 0; label < CurveDrawing::unitLabels; ++label) {
        const double x = plot.range.lower + plot.range.span() * static_cast<double>(label) /
                                                (CurveDrawing::unitLabels - 1);
        drawing.units[label] = {{plot.positionOfX(x), plot.rect.bottom() + unitLabelOffset},
                                wholeNumber(x) + mark};
    }
}

void layCurve(CurveDrawing& drawing, const CurvePlot& plot, const CurveEditing& editing) {
    const auto& points = editing.curve.points;
    if (points.empty())
        return;
    drawing.line.push_back({plot.rect.left, plot.positionOfSpeed(points.front().speed)});
    for (std::size_t index = 0; index < points.size(); ++index) {
        const PlotPoint middle = plot.position(points[index]);
        const bool dragged = editing.dragging == index;
        drawing.line.push_back(middle);
        drawing.knots.push_back(
            {middle, dragged ? CurveDrawing::draggedKnotRadius : CurveDrawing::knotRadius,
             points[index].x, editing.chosen == index, editing.hovered == index});
    }
    drawing.line.push_back({plot.rect.right(), plot.positionOfSpeed(points.back().speed)});
}

} // namespace

bool isLoadUnit(std::string_view unit) {
    return unit == "%";
}

std::string unitMark(std::string_view unit) {
    return isLoadUnit(unit) ? "%" : "°";
}

std::string wholeNumber(double value) {
    return std::to_string(roundedToInteger(value));
}

// A curve from outside may hold any number, even one that no integer can.
std::string unitText(double x, std::string_view unit) {
    // A temperature's unit stands apart from its number, a percent sign does not.
    const std::string gap = isLoadUnit(unit) ? "" : " ";
    return wholeNumber(std::clamp(x, -largestShown, largestShown)) + gap + std::string(unit);
}

std::string speedText(double speed) {
    return percentText(std::clamp(speed, -largestShown, largestShown));
}

std::string positionText(const CurvePoint& point, std::string_view unit) {
    return unitText(point.x, unit) + ", " + speedText(point.speed);
}

CurveDrawing drawingOf(const CurveEditing& editing, std::string_view unit,
                       std::optional<double> marker, const PlotRect& plot) {
    const CurvePlot mapping{plot, editing.range};
    CurveDrawing drawing;
    drawing.plot = plot;
    drawing.range = editing.range;
    drawing.load = isLoadUnit(unit);
    layAxes(drawing, mapping, unitMark(unit));
    layCurve(drawing, mapping, editing);
    if (marker && plottable.contains(*marker)) {
        const double x = mapping.positionOfX(*marker);
        drawing.marker = {*marker,
                          x,
                          "now " + wholeNumber(*marker) + unitMark(unit),
                          {x + markerLabelOffset, plot.top + markerLabelDrop}};
    }
    return drawing;
}

} // namespace tervale
