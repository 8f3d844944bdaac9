#pragma once

#include "TervaleWindow/Profiles/CurveEdit.h"
#include "TervaleWindow/Profiles/CurvePlot.h"

#include <cstddef>
#include <optional>

namespace tervale {

/// The editing of one curve by pointer and keyboard, as a state machine without a toolkit. It
/// changes no curve itself: what it returns is for the curve's owner to perform, who then gives it
/// the new curve by `follow`.
///
/// A gesture of the pointer is a run of `takeHold` and `drag`, closed by `endDrag`. Between
/// gestures `dragging` is empty. No edit adds a point beyond `Profile::maxPoints` or removes one of
/// the last two. A point that is moved stays one unit or more from its neighbours, where they leave
/// that much room; one that is added has an x of its own. How the speeds follow each other is not
/// its business. A curve that came in otherwise stays as it is but for what is edited.
struct CurveEditing {
    /// As its owner last told it.
    Curve curve;
    ClosedRange range;
    /// The point that the pointer holds.
    std::optional<std::size_t> dragging;
    /// The point that the keys act on; what the pointer holds is chosen too.
    std::optional<std::size_t> chosen;
    /// The point that the pointer is at, whether it holds it or not.
    std::optional<std::size_t> hovered;

    /// Whether no point can be added.
    bool full() const;
    /// Whether there are more points than a curve must have.
    bool canRemove() const;
    /// How far down, and up, the point's x can be moved between its neighbours.
    double lowestX(std::size_t index) const;
    double highestX(std::size_t index) const;

    /// Follows the pointer, which is elsewhere without a location.
    void hover(const std::optional<PlotPoint>& location, const PlotRect& plot);
    /// Takes hold of the point under `start`, or else asks for one there, which it holds then.
    std::optional<CurveEdit> takeHold(const PlotPoint& start, const PlotRect& plot);
    /// Brings the point that is held to `location`.
    std::optional<CurveEdit> drag(const PlotPoint& location, const PlotRect& plot) const;
    void endDrag();
    /// Removes the point under the pointer, where more than 2 are left.
    std::optional<CurveEdit> removePoint(const PlotPoint& near, const PlotRect& plot);

    /// Takes the curve that came of its own edit.
    void follow(const Curve& edited);
    /// Takes a curve from elsewhere. One that differs ends a gesture; if it differs by one point,
    /// that is chosen.
    void replace(const Curve& other);

    /// Lets go of a point that the curve does not have.
    void holdWhatIsThere();

    enum class Direction { left, right };
    void choose(Direction direction);
    /// Moves the chosen point by whole units of x and whole percent of speed.
    std::optional<CurveEdit> moveChosen(double units, double percent) const;
    /// Adds a point midway between the chosen one and the next, on the line; after the last one,
    /// midway to the end of the range. Nothing where whole units leave no room.
    std::optional<CurveEdit> insertAfterChosen();
    std::optional<CurveEdit> removeChosen();

    bool operator==(const CurveEditing&) const = default;

  private:
    CurveEdit add(const CurvePoint& point);
    /// As far as the neighbours and the range let it.
    std::optional<CurveEdit> move(std::size_t index, const CurvePoint& to) const;
    CurveEdit remove(std::size_t index);
};

} // namespace tervale
