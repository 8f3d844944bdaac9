#pragma once

#include "Base/ClosedRange.h"
#include "Profiles/Profile.h"

#include <cstddef>
#include <optional>

namespace tervale {

// The plane in which a curve is drawn and edited, without a toolkit.

/// A place in logical pixels, y growing downward.
struct PlotPoint {
    double x = 0;
    double y = 0;

    bool operator==(const PlotPoint&) const = default;
};

struct PlotRect {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;

    double right() const { return left + width; }
    double bottom() const { return top + height; }
    bool isEmpty() const { return width <= 0 || height <= 0; }

    bool operator==(const PlotRect&) const = default;
};

/// The room around a plot for its labels.
struct PlotInsets {
    double top = 0;
    double leading = 0;
    double bottom = 0;
    double trailing = 0;

    bool operator==(const PlotInsets&) const = default;
};

/// `bounds` less `insets`; never of negative size.
PlotRect inset(const PlotRect& bounds, const PlotInsets& insets);

/// Maps between a curve and the pixels of its plot.
struct CurvePlot {
    /// How far from a point's middle the pointer still finds it.
    static constexpr double hitRadius = 14;

    PlotRect rect;
    /// The values of the horizontal axis.
    ClosedRange range;

    PlotPoint position(const CurvePoint& point) const;
    double positionOfX(double x) const;
    double positionOfSpeed(double speed) const;
    /// The value at a place, snapped to whole units and whole percent and kept on the plot.
    CurvePoint value(const PlotPoint& at) const;
    /// The index of the point under the pointer; the earlier of two that are equally near.
    std::optional<std::size_t> nearest(const PlotPoint& at, const Curve& curve) const;
};

} // namespace tervale
