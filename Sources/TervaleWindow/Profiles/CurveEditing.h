#pragma once

#include "TervaleWindow/Profiles/CurvePlot.h"

#include <cstddef>
#include <optional>

namespace tervale {

/// The editing of one curve by pointer and keyboard, as a state machine without a toolkit.
///
/// A gesture of the pointer is a run of `drag` with the same start, closed by `endDrag`. Between
/// gestures `dragging` is empty. No edit adds a point beyond `Profile::maxPoints` or removes one of
/// the last two. A point that is moved stays one unit or more from its neighbours, where they leave
/// that much room; one that is added has an x of its own. How the speeds follow each other is not
/// its business. A curve that came in otherwise stays as it is but for what is edited.
struct CurveEditing {
    Curve curve;
    ClosedRange range;
    /// The point that the pointer holds.
    std::optional<std::size_t> dragging;
    /// The point that the keys act on; what the pointer holds is chosen too.
    std::optional<std::size_t> chosen;

    /// Every change of a gesture, its first included: takes hold of the point under `start`, or
    /// adds one there, and moves what it holds to `location`.
    void drag(const PlotPoint& start, const PlotPoint& location, const PlotRect& plot);
    void endDrag();
    /// Removes the point under the pointer, where more than 2 are left.
    void removePoint(const PlotPoint& near, const PlotRect& plot);
    /// Sets one point's x and brings the points back into order; what is dragged or chosen stays
    /// so.
    void setX(std::size_t index, double x);

    /// Takes another curve. One that differs ends a gesture.
    void replace(const Curve& other);

    enum class Direction { left, right };
    void choose(Direction direction);
    /// Moves the chosen point by whole units of x and whole percent of speed.
    void moveChosen(double units, double percent);
    /// Adds a point midway between the chosen one and the next, on the line; after the last one,
    /// midway to the end of the range. Nothing where whole units leave no room.
    void insertAfterChosen();
    void removeChosen();

    bool operator==(const CurveEditing&) const = default;

  private:
    void takeHold(const PlotPoint& start, const CurvePlot& plot);
    void add(const CurvePoint& point);
    void move(std::size_t index, const CurvePoint& to);
    void remove(std::size_t index);
    bool full() const;
};

} // namespace tervale
