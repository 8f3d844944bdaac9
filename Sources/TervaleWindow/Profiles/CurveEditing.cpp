#include "TervaleWindow/Profiles/CurveEditing.h"

#include "TervaleWindow/Profiles/WholePercent.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <vector>

namespace tervale {

namespace {

constexpr std::size_t fewestPoints = 2;

/// The one point that was moved, added or removed between the two, as an index of the second.
std::optional<std::size_t> changedPoint(const Curve& from, const Curve& to) {
    const std::vector<CurvePoint>& old = from.points;
    const std::vector<CurvePoint>& other = to.points;
    const auto [first, firstOther] =
        std::mismatch(old.begin(), old.end(), other.begin(), other.end());
    const auto [last, lastOther] =
        std::mismatch(old.rbegin(), std::make_reverse_iterator(first), other.rbegin(),
                      std::make_reverse_iterator(firstOther));
    if (last.base() - first > 1 || lastOther.base() - firstOther > 1 || other.empty())
        return std::nullopt;
    return std::min(static_cast<std::size_t>(firstOther - other.begin()), other.size() - 1);
}

} // namespace

bool CurveEditing::full() const {
    return curve.points.size() >= static_cast<std::size_t>(Profile::maxPoints);
}

bool CurveEditing::canRemove() const {
    return curve.points.size() > fewestPoints;
}

double CurveEditing::lowestX(std::size_t index) const {
    return index >= 1 ? curve.points[index - 1].x + 1 : range.lower;
}

double CurveEditing::highestX(std::size_t index) const {
    return index + 1 < curve.points.size() ? curve.points[index + 1].x - 1 : range.upper;
}

void CurveEditing::hover(const std::optional<PlotPoint>& location, const PlotRect& plot) {
    hovered = dragging;
    if (!dragging && location && !plot.isEmpty())
        hovered = CurvePlot{plot, range}.nearest(*location, curve);
}

std::optional<CurveEdit> CurveEditing::takeHold(const PlotPoint& start, const PlotRect& plot) {
    // Without any room every place would be the same value.
    if (plot.isEmpty())
        return std::nullopt;
    const CurvePlot mapping{plot, range};
    if (const auto found = mapping.nearest(start, curve)) {
        dragging = chosen = found;
        return std::nullopt;
    }
    const CurvePoint added = mapping.value(start);
    const bool taken =
        std::any_of(curve.points.begin(), curve.points.end(),
                    [&added](const CurvePoint& point) { return point.x == added.x; });
    if (full() || taken)
        return std::nullopt;
    CurveEdit edit = add(added);
    dragging = chosen;
    return edit;
}

std::optional<CurveEdit> CurveEditing::drag(const PlotPoint& location, const PlotRect& plot) const {
    if (!dragging || plot.isEmpty())
        return std::nullopt;
    return move(*dragging, CurvePlot{plot, range}.value(location));
}

CurveEdit CurveEditing::add(const CurvePoint& point) {
    // The points come into order with it.
    chosen = static_cast<std::size_t>(
        std::count_if(curve.points.begin(), curve.points.end(),
                      [&point](const CurvePoint& other) { return other.x <= point.x; }));
    return curveEdit::Add{point};
}

std::optional<CurveEdit> CurveEditing::move(std::size_t index, const CurvePoint& to) const {
    // Not std::clamp: between neighbours without room the ends are the wrong way round.
    const CurvePoint place{std::min(highestX(index), std::max(lowestX(index), to.x)), to.speed};
    if (place == curve.points[index])
        return std::nullopt;
    return curveEdit::Move{index, place};
}

void CurveEditing::endDrag() {
    dragging.reset();
}

std::optional<CurveEdit> CurveEditing::removePoint(const PlotPoint& near, const PlotRect& plot) {
    if (!canRemove() || plot.isEmpty())
        return std::nullopt;
    const auto found = CurvePlot{plot, range}.nearest(near, curve);
    return found ? std::optional(remove(*found)) : std::nullopt;
}

CurveEdit CurveEditing::remove(std::size_t index) {
    const std::size_t last = curve.points.size() - 2;
    dragging.reset();
    if (chosen && *chosen > index)
        --*chosen;
    if (chosen)
        chosen = std::min(*chosen, last);
    return curveEdit::Remove{index};
}

void CurveEditing::follow(const Curve& edited) {
    curve = edited;
    holdWhatIsThere();
}

void CurveEditing::holdWhatIsThere() {
    for (auto* held : {&dragging, &chosen, &hovered}) {
        if (*held && **held >= curve.points.size())
            held->reset();
    }
}

void CurveEditing::replace(const Curve& other) {
    if (other == curve)
        return;
    dragging.reset();
    if (const auto changed = changedPoint(curve, other))
        chosen = changed;
    follow(other);
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

std::optional<CurveEdit> CurveEditing::moveChosen(double units, double percent) const {
    if (!chosen)
        return std::nullopt;
    const CurvePoint from = curve.points[*chosen];
    CurvePoint to = from;
    if (percent != 0)
        to.speed = wholePercent(std::min(1.0, std::max(0.0, from.speed + percent / 100)));
    // A point that is beside the plot or too near to another stays there until it is moved.
    if (units != 0) {
        to.x = std::round(std::min(range.upper, std::max(range.lower, from.x + units)));
        return move(*chosen, to);
    }
    return to == from ? std::nullopt : std::optional<CurveEdit>(curveEdit::Move{*chosen, to});
}

std::optional<CurveEdit> CurveEditing::insertAfterChosen() {
    if (full())
        return std::nullopt;
    if (curve.points.empty())
        return add({std::round(range.lower + range.span() / 2), 0.5});
    const std::size_t index = chosen.value_or(0);
    const double left = curve.points[index].x;
    const double right =
        index + 1 < curve.points.size() ? curve.points[index + 1].x : range.upper + 1;
    const double x = std::floor((left + right) / 2);
    if (left < x && x < right && range.contains(x))
        return add({x, wholePercent(curve.speed(x))});
    return std::nullopt;
}

std::optional<CurveEdit> CurveEditing::removeChosen() {
    if (!chosen || !canRemove())
        return std::nullopt;
    return remove(*chosen);
}

} // namespace tervale
