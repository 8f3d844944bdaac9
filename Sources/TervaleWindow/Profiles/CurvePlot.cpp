#include "TervaleWindow/Profiles/CurvePlot.h"

#include <algorithm>
#include <cmath>

namespace tervale {

PlotRect inset(const PlotRect& bounds, const PlotInsets& insets) {
    return {bounds.left + insets.leading, bounds.top + insets.top,
            std::max(0.0, bounds.width - insets.leading - insets.trailing),
            std::max(0.0, bounds.height - insets.top - insets.bottom)};
}

PlotPoint CurvePlot::position(const CurvePoint& point) const {
    return {positionOfX(point.x), positionOfSpeed(point.speed)};
}

double CurvePlot::positionOfX(double x) const {
    return rect.left + (x - range.lower) / range.span() * rect.width;
}

double CurvePlot::positionOfSpeed(double speed) const {
    return rect.bottom() - speed * rect.height;
}

CurvePoint CurvePlot::value(const PlotPoint& at) const {
    // On a plot without size the quotients are no numbers; the comparisons send them to the lower
    // end.
    const double x = range.lower + (at.x - rect.left) / rect.width * range.span();
    const double speed = (rect.bottom() - at.y) / rect.height;
    return {std::round(x > range.lower ? std::min(x, range.upper) : range.lower),
            speed > 0 ? std::round(std::min(speed, 1.0) * 100) / 100 : 0.0};
}

std::optional<std::size_t> CurvePlot::nearest(const PlotPoint& at, const Curve& curve) const {
    std::optional<std::size_t> found;
    double smallest = hitRadius;
    for (std::size_t index = 0; index < curve.points.size(); ++index) {
        const PlotPoint point = position(curve.points[index]);
        const double distance = std::hypot(point.x - at.x, point.y - at.y);
        if (distance < smallest) {
            smallest = distance;
            found = index;
        }
    }
    return found;
}

} // namespace tervale
