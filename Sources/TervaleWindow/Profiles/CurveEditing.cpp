#include "TervaleWindow/Profiles/CurveEditing.h"

#include "Base/Precondition.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

namespace tervale {

namespace {

constexpr std::size_t fewestPoints = 2;

bool isLeftOf(const CurvePoint& first, const CurvePoint& second) {
    return first.x < second.x;
}

/// Sorts by x, points with the same x in the order they had, and has `index` follow its point.
void sortFollowing(std::vector<CurvePoint>& points, std::optional<std::size_t>& first,
                   std::optional<std::size_t>& second) {
    std::vector<std::size_t> order(points.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&points](std::size_t one, std::size_t other) {
        return isLeftOf(points[one], points[other]);
    });
    std::vector<CurvePoint> sorted;
    sorted.reserve(points.size());
    for (const std::size_t index : order)
        sorted.push_back(points[index]);
    points = std::move(sorted);
    for (auto* followed : {&first, &second}) {
        if (*followed)
            *followed = static_cast<std::size_t>(std::find(order.begin(), order.end(), **followed) -
                                                 order.begin());
    }
}

double wholePercent(double speed) {
    return std::round(speed * 100) / 100;
}

} // namespace

bool CurveEditing::full() const {
    return curve.points.size() >= static_cast<std::size_t>(Profile::maxPoints);
}

void CurveEditing::drag(const PlotPoint& start, const PlotPoint& location, const PlotRect& plot) {
    // Without any room every place would be the same value.
    if (plot.width <= 0 || plot.height <= 0)
        return;
    const CurvePlot mapping{plot, range};
    if (!dragging)
        takeHold(start, mapping);
    if (dragging)
        move(*dragging, mapping.value(location));
}

void CurveEditing::takeHold(const PlotPoint& start, const CurvePlot& plot) {
    if (const auto found = plot.nearest(start, curve)) {
        dragging = found;
    } else if (!full()) {
        const CurvePoint added = plot.value(start);
        const bool taken =
            std::any_of(curve.points.begin(), curve.points.end(),
                        [&added](const CurvePoint& point) { return point.x == added.x; });
        if (taken)
            return;
        add(added);
        dragging = chosen;
    }
    chosen = dragging ? dragging : chosen;
}

void CurveEditing::add(const CurvePoint& point) {
    curve.points.push_back(point);
    chosen = curve.points.size() - 1;
    sortFollowing(curve.points, chosen, dragging);
}

void CurveEditing::move(std::size_t index, const CurvePoint& to) {
    const std::vector<CurvePoint>& points = curve.points;
    const double lowest = index >= 1 ? points[index - 1].x + 1 : range.lower;
    const double highest = index + 1 < points.size() ? points[index + 1].x - 1 : range.upper;
    curve.points[index].speed = to.speed;
    // Not std::clamp: between neighbours without room the ends are the wrong way round.
    setX(index, std::min(highest, std::max(lowest, to.x)));
}

void CurveEditing::endDrag() {
    dragging.reset();
}

void CurveEditing::removePoint(const PlotPoint& near, const PlotRect& plot) {
    if (curve.points.size() <= fewestPoints || plot.width <= 0 || plot.height <= 0)
        return;
    if (const auto found = CurvePlot{plot, range}.nearest(near, curve))
        remove(*found);
}

void CurveEditing::remove(std::size_t index) {
    curve.points.erase(curve.points.begin() + static_cast<std::ptrdiff_t>(index));
    dragging.reset();
    if (chosen && *chosen > index)
        --*chosen;
    if (chosen)
        chosen = std::min(*chosen, curve.points.size() - 1);
}

void CurveEditing::setX(std::size_t index, double x) {
    precondition(index < curve.points.size(), "a curve has no point of that index");
    curve.points[index].x = x;
    sortFollowing(curve.points, chosen, dragging);
}

void CurveEditing::replace(const Curve& other) {
    if (other == curve)
        return;
    curve = other;
    dragging.reset();
    if (chosen && *chosen >= curve.points.size())
        chosen.reset();
}

void CurveEditing::choose(Direction direction) {
    const std::size_t count = curve.points.size();
    if (count == 0)
        return;
    if (!chosen)
        chosen = direction == Direction::right ? 0 : count - 1;
    else if (direction == Direction::right)
        chosen = std::min(*chosen + 1, count - 1);
    else if (*chosen > 0)
        --*chosen;
}

void CurveEditing::moveChosen(double units, double percent) {
    if (!chosen)
        return;
    const CurvePoint from = curve.points[*chosen];
    const double x = std::round(std::min(range.upper, std::max(range.lower, from.x + units)));
    const double speed = wholePercent(std::min(1.0, std::max(0.0, from.speed + percent / 100)));
    if (percent != 0)
        curve.points[*chosen].speed = speed;
    // A point that is beside the plot or too near to another stays there until it is moved.
    if (units != 0)
        move(*chosen, {x, curve.points[*chosen].speed});
}

void CurveEditing::insertAfterChosen() {
    if (full())
        return;
    if (curve.points.empty()) {
        add({std::round(range.lower + range.span() / 2), 0.5});
        return;
    }
    const std::size_t index = chosen.value_or(0);
    const double left = curve.points[index].x;
    const double right =
        index + 1 < curve.points.size() ? curve.points[index + 1].x : range.upper + 1;
    const double x = std::floor((left + right) / 2);
    if (left < x && x < right && range.contains(x))
        add({x, wholePercent(curve.speed(x))});
}

void CurveEditing::removeChosen() {
    if (chosen && curve.points.size() > fewestPoints)
        remove(*chosen);
}

} // namespace tervale
