#include "tervalectl/CurveText.h"

#include "Base/ClosedRange.h"
#include "Base/ThemeColors.h"
#include "tervalectl/TextCanvas.h"

#include <algorithm>
#include <optional>

namespace tervale {

namespace {

constexpr int rows = 9;
constexpr int mostCurveColumns = 60;

/// That of the window's editor; the whole of a curve's range where points lie beside it.
ClosedRange rangeOf(const Curve& curve, CurveAxis axis) {
    if (axis == CurveAxis::load)
        return {0, 100};
    constexpr ClosedRange usual{20, 110};
    constexpr ClosedRange whole{0, 120};
    const auto isUsual = [&](const CurvePoint& point) { return usual.contains(point.x); };
    return std::ranges::all_of(curve.points, isUsual) ? usual : whole;
}

bool canBeDrawn(const Curve& curve, ClosedRange range) {
    return !curve.points.empty() && std::ranges::all_of(curve.points, [&](const CurvePoint& point) {
        return range.contains(point.x) && point.speed >= 0 && point.speed <= 1;
    });
}

} // namespace

std::string curveText(const Curve& curve, CurveAxis axis, const TextStyle& style) {
    const ClosedRange range = rangeOf(curve, axis);
    if (!canBeDrawn(curve, range))
        return {};
    const int columns = std::min(style.columns - labelColumns - 2, mostCurveColumns);
    TextCanvas canvas(columns, rows, style);
    const double across = canvas.dotsAcross() - 1;
    const double down = canvas.dotsDown() - 1;
    const auto colorAt = [&](double x) -> std::optional<SRGB> {
        return axis == CurveAxis::temperature ? themeColors::thermal(x) : themeColors::accent;
    };
    const auto heightAt = [&](double x) { return nearest((1 - curve.speed(x)) * down); };
    int last = heightAt(range.lower);
    for (int dot = 0; dot <= nearest(across); ++dot) {
        const double x = range.lower + dot / across * range.span();
        const int height = heightAt(x);
        canvas.line(dot, last, dot, height, [&](int) { return colorAt(x); });
        last = height;
    }
    for (const CurvePoint& point : curve.points) {
        const double column = (point.x - range.lower) / range.span() * (columns - 1);
        canvas.write(nearest(column), nearest((1 - point.speed) * (rows - 1)),
                     style.unicode ? "●" : "O", colorAt(point.x));
    }
    std::string text;
    int row = 0;
    for (const std::string& line : canvas.lines()) {
        const std::string label = row % 4 == 0 ? std::to_string(100 - 25 * row / 2) + '%' : "";
        text.append(labelColumns - 1 - label.size(), ' ');
        text.append(label).append(style.unicode ? " │" : " |").append(line).append("\n");
        ++row;
    }
    TextCanvas labels(style.columns, 1, style);
    for (int x = nearest(range.lower); x <= range.upper; x += 20) {
        const std::string label = std::to_string(x);
        const int middle =
            labelColumns + 1 + nearest((x - range.lower) / range.span() * (columns - 1));
        labels.write(middle - static_cast<int>(label.size()) / 2, 0, label);
    }
    const char* unit = axis == CurveAxis::load ? "  %" : style.unicode ? "  °C" : "  C";
    return text + labels.lines().front() + unit + '\n';
}

} // namespace tervale
