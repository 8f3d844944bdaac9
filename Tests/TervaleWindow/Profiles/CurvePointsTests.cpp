#include "TervaleWindow/Profiles/OwnedCurve.h"

#include <gtest/gtest.h>

namespace tervale {
namespace {

TEST(CurveAdd, PutsAPointWhereEmptySpaceIsPressed) {
    OwnedCurve editing = usual();
    const PlotPoint place = at(70, 0.2);
    editing.drag(place, place, plotRect);
    EXPECT_EQ(xs(editing), (std::vector<double>{40, 60, 70, 80, 95}));
    EXPECT_EQ(editing.curve.points[2], (CurvePoint{70, 0.2}));
    EXPECT_EQ(editing.dragging, 2U);
}

TEST(CurveAdd, MovesTheNewPointWithTheSameGesture) {
    OwnedCurve editing = usual();
    const PlotPoint place = at(70, 0.2);
    editing.drag(place, place, plotRect);
    editing.drag(place, at(75, 0.6), plotRect);
    EXPECT_EQ(editing.curve.points[2], (CurvePoint{75, 0.6}));
    EXPECT_EQ(editing.curve.points.size(), 5U);
}

TEST(CurveAdd, AddsNothingWhereAPointHasThatX) {
    OwnedCurve editing = usual();
    const OwnedCurve before = editing;
    editing.drag(at(60.3, 0.9), at(70, 0.9), plotRect);
    EXPECT_EQ(editing.curve, before.curve);
    EXPECT_EQ(editing.dragging, std::nullopt);
}

TEST(CurveAdd, AddsNothingToEightPoints) {
    OwnedCurve editing = withPoints(8);
    editing.drag(at(30, 0.9), at(30, 0.9), plotRect);
    EXPECT_EQ(editing, withPoints(8));
}

TEST(CurveAdd, StillMovesOneOfEightPoints) {
    OwnedCurve editing = withPoints(8);
    editing.drag(at(25, 0.5), at(27, 0.4), plotRect);
    EXPECT_EQ(editing.curve.points[0], (CurvePoint{27, 0.4}));
}

TEST(CurveAdd, AddsAnEighthPoint) {
    OwnedCurve editing = withPoints(7);
    editing.drag(at(30, 0.9), at(30, 0.9), plotRect);
    EXPECT_EQ(editing.curve.points.size(), 8U);
}

TEST(CurveAdd, StartsAnEmptyCurve) {
    OwnedCurve editing = editingOf({});
    editing.drag(at(50, 0.5), at(50, 0.5), plotRect);
    EXPECT_EQ(editing.curve.points, (std::vector<CurvePoint>{{50, 0.5}}));
}

TEST(CurveAdd, BringsAnUnsortedCurveIntoOrder) {
    OwnedCurve editing = editingOf({{80, 0.8}, {40, 0.1}});
    editing.drag(at(60, 0.2), at(60, 0.2), plotRect);
    EXPECT_EQ(xs(editing), (std::vector<double>{40, 60, 80}));
    EXPECT_EQ(editing.dragging, 1U);
}

TEST(CurveRemove, TakesThePointUnderThePointer) {
    OwnedCurve editing = usual();
    editing.removePoint(at(60, 0.35), plotRect);
    EXPECT_EQ(xs(editing), (std::vector<double>{40, 80, 95}));
}

TEST(CurveRemove, TakesNothingFromEmptySpace) {
    OwnedCurve editing = usual();
    editing.removePoint(at(60, 0.9), plotRect);
    EXPECT_EQ(editing, usual());
}

TEST(CurveRemove, LeavesTwoPoints) {
    OwnedCurve editing = withPoints(3);
    editing.removePoint(at(25, 0.5), plotRect);
    EXPECT_EQ(xs(editing), (std::vector<double>{35, 45}));
    editing.removePoint(at(35, 0.5), plotRect);
    EXPECT_EQ(xs(editing), (std::vector<double>{35, 45}));
}

TEST(CurveSetX, BringsThePointsBackIntoOrder) {
    Curve curve = usual().curve;
    setX(curve, 0, 85);
    EXPECT_EQ(curve.points,
              (std::vector<CurvePoint>{{60, 0.35}, {80, 0.75}, {85, 0.1}, {95, 1.0}}));
}

TEST(CurveSetX, LeavesPointsOfTheSameXInTheirOrder) {
    Curve curve = usual().curve;
    setX(curve, 0, 80);
    EXPECT_EQ(curve.points[1], (CurvePoint{80, 0.1}));
    EXPECT_EQ(curve.points[2], (CurvePoint{80, 0.75}));
}

TEST(CurveReplace, EndsTheGestureOnlyForAnotherCurve) {
    OwnedCurve editing = usual();
    editing.drag(at(60, 0.35), at(65, 0.5), plotRect);
    editing.replace(Curve(editing.curve));
    EXPECT_EQ(editing.dragging, 1U);
    editing.replace({{{10, 0.0}}});
    EXPECT_EQ(editing.dragging, std::nullopt);
    EXPECT_EQ(editing.chosen, std::nullopt);
}

} // namespace
} // namespace tervale
