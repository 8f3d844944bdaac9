#pragma once

#include "TervaleWindow/Profiles/CurveEditing.h"

#include <gtest/gtest.h>

#include <optional>
#include <utility>
#include <vector>

namespace tervale {

inline constexpr PlotRect plotRect{40, 12, 810, 200};
inline constexpr ClosedRange temperatures{20, 110};

inline std::vector<double> xs(const CurveEditing& editing) {
    std::vector<double> result;
    for (const CurvePoint& point : editing.curve.points)
        result.push_back(point.x);
    return result;
}

inline PlotPoint at(double x, double speed) {
    return CurvePlot{plotRect, temperatures}.position({x, speed});
}

/// The state machine with an owner that performs whatever it asks for.
struct OwnedCurve : CurveEditing {
    void drag(const PlotPoint& start, const PlotPoint& location, const PlotRect& plot) {
        if (!dragging)
            perform(takeHold(start, plot));
        perform(CurveEditing::drag(location, plot));
    }
    void removePoint(const PlotPoint& near, const PlotRect& plot) {
        perform(CurveEditing::removePoint(near, plot));
    }
    void moveChosen(double units, double percent) {
        perform(CurveEditing::moveChosen(units, percent));
    }
    void insertAfterChosen() { perform(CurveEditing::insertAfterChosen()); }
    void removeChosen() { perform(CurveEditing::removeChosen()); }

    bool operator==(const OwnedCurve&) const = default;

  private:
    void perform(const std::optional<CurveEdit>& edit) {
        if (!edit)
            return;
        Curve edited = curve;
        EXPECT_TRUE(tervale::perform(*edit, edited));
        follow(edited);
    }
};

inline OwnedCurve editingOf(std::vector<CurvePoint> points) {
    OwnedCurve editing;
    editing.curve.points = std::move(points);
    editing.range = temperatures;
    return editing;
}

inline OwnedCurve usual() {
    return editingOf({{40, 0.1}, {60, 0.35}, {80, 0.75}, {95, 1.0}});
}

inline OwnedCurve withPoints(int count) {
    std::vector<CurvePoint> points;
    for (int index = 0; index < count; ++index)
        points.push_back({25.0 + 10 * index, 0.5});
    return editingOf(std::move(points));
}

} // namespace tervale
