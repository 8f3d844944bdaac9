#include "TervaleWindow/Profiles/CurveEditing.h"

#include <gtest/gtest.h>

#include <vector>

namespace tervale {
namespace {

constexpr PlotRect plotRect{40, 12, 810, 200};
constexpr ClosedRange temperatures{20, 110};

std::vector<double> xs(const CurveEditing& editing) {
    std::vector<double> result;
    for (const CurvePoint& point : editing.curve.points)
        result.push_back(point.x);
    return result;
}

PlotPoint at(double x, double speed) {
    return CurvePlot{plotRect, temperatures}.position({x, speed});
}

/// The state machine with an owner that performs whatever it asks for.
struct Owned : CurveEditing {
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

    bool operator==(const Owned&) const = default;

  private:
    void perform(const std::optional<CurveEdit>& edit) {
        if (!edit)
            return;
        Curve edited = curve;
        EXPECT_TRUE(tervale::perform(*edit, edited));
        follow(edited);
    }
};

Owned editingOf(std::vector<CurvePoint> points) {
    Owned editing;
    editing.curve.points = std::move(points);
    editing.range = temperatures;
    return editing;
}

Owned usual() {
    return editingOf({{40, 0.1}, {60, 0.35}, {80, 0.75}, {95, 1.0}});
}

Owned withPoints(int count) {
    std::vector<CurvePoint> points;
    for (int index = 0; index < count; ++index)
        points.push_back({25.0 + 10 * index, 0.5});
    return editingOf(std::move(points));
}

TEST(CurveDrag, MovesThePointThatWasPressed) {
    Owned editing = usual();
    editing.drag(at(60, 0.35), at(65, 0.5), plotRect);
    EXPECT_EQ(editing.dragging, 1U);
    EXPECT_EQ(editing.curve.points[1], (CurvePoint{65, 0.5}));
    editing.endDrag();
    EXPECT_EQ(editing.dragging, std::nullopt);
}

TEST(CurveDrag, KeepsItsPointThroughTheWholeGesture) {
    Owned editing = usual();
    const PlotPoint start = at(60, 0.35);
    editing.drag(start, start, plotRect);
    editing.drag(start, at(79, 0.75), plotRect);
    editing.drag(start, at(50, 0.2), plotRect);
    EXPECT_EQ(editing.curve.points[1], (CurvePoint{50, 0.2}));
    EXPECT_EQ(editing.curve.points[2], (CurvePoint{80, 0.75}));
}

TEST(CurveDrag, PutsAPointThatIsPressedBesideItsMiddleUnderThePointer) {
    Owned editing = usual();
    const PlotPoint beside = at(61, 0.37);
    editing.drag(beside, beside, plotRect);
    EXPECT_EQ(editing.curve.points[1], (CurvePoint{61, 0.37}));
}

TEST(CurveDrag, StopsOneUnitBesideTheNeighbours) {
    Owned editing = usual();
    editing.drag(at(60, 0.35), at(110, 0.35), plotRect);
    EXPECT_EQ(editing.curve.points[1].x, 79);
    editing.drag(at(60, 0.35), at(20, 0.35), plotRect);
    EXPECT_EQ(editing.curve.points[1].x, 41);
}

TEST(CurveDrag, StopsTheOuterPointsAtTheEndsOfTheRange) {
    Owned editing = usual();
    editing.drag(at(40, 0.1), {-500, 0}, plotRect);
    EXPECT_EQ(editing.curve.points[0], (CurvePoint{20, 1.0}));
    editing.endDrag();
    editing.drag(at(95, 1.0), {5000, 5000}, plotRect);
    EXPECT_EQ(editing.curve.points[3], (CurvePoint{110, 0.0}));
}

TEST(CurveDrag, LeavesTheOrderOfSpeedsToTheUser) {
    Owned editing = usual();
    editing.drag(at(80, 0.75), at(80, 0.0), plotRect);
    EXPECT_EQ(editing.curve.points[2], (CurvePoint{80, 0.0}));
}

TEST(CurveDrag, StaysLeftOfTheNextPointWhereThereIsNoRoom) {
    Owned editing = editingOf({{40, 0.0}, {40.5, 0.5}, {41, 1.0}});
    editing.drag(at(40.5, 0.5), at(60, 0.5), plotRect);
    EXPECT_EQ(editing.curve.points[1], (CurvePoint{40, 0.5}));
}

TEST(CurveAdd, PutsAPointWhereEmptySpaceIsPressed) {
    Owned editing = usual();
    const PlotPoint place = at(70, 0.2);
    editing.drag(place, place, plotRect);
    EXPECT_EQ(xs(editing), (std::vector<double>{40, 60, 70, 80, 95}));
    EXPECT_EQ(editing.curve.points[2], (CurvePoint{70, 0.2}));
    EXPECT_EQ(editing.dragging, 2U);
}

TEST(CurveAdd, MovesTheNewPointWithTheSameGesture) {
    Owned editing = usual();
    const PlotPoint place = at(70, 0.2);
    editing.drag(place, place, plotRect);
    editing.drag(place, at(75, 0.6), plotRect);
    EXPECT_EQ(editing.curve.points[2], (CurvePoint{75, 0.6}));
    EXPECT_EQ(editing.curve.points.size(), 5U);
}

TEST(CurveAdd, AddsNothingWhereAPointHasThatX) {
    Owned editing = usual();
    const Owned before = editing;
    editing.drag(at(60.3, 0.9), at(70, 0.9), plotRect);
    EXPECT_EQ(editing.curve, before.curve);
    EXPECT_EQ(editing.dragging, std::nullopt);
}

TEST(CurveAdd, AddsNothingToEightPoints) {
    Owned editing = withPoints(8);
    editing.drag(at(30, 0.9), at(30, 0.9), plotRect);
    EXPECT_EQ(editing, withPoints(8));
}

TEST(CurveAdd, StillMovesOneOfEightPoints) {
    Owned editing = withPoints(8);
    editing.drag(at(25, 0.5), at(27, 0.4), plotRect);
    EXPECT_EQ(editing.curve.points[0], (CurvePoint{27, 0.4}));
}

TEST(CurveAdd, AddsAnEighthPoint) {
    Owned editing = withPoints(7);
    editing.drag(at(30, 0.9), at(30, 0.9), plotRect);
    EXPECT_EQ(editing.curve.points.size(), 8U);
}

TEST(CurveAdd, StartsAnEmptyCurve) {
    Owned editing = editingOf({});
    editing.drag(at(50, 0.5), at(50, 0.5), plotRect);
    EXPECT_EQ(editing.curve.points, (std::vector<CurvePoint>{{50, 0.5}}));
}

TEST(CurveAdd, BringsAnUnsortedCurveIntoOrder) {
    Owned editing = editingOf({{80, 0.8}, {40, 0.1}});
    editing.drag(at(60, 0.2), at(60, 0.2), plotRect);
    EXPECT_EQ(xs(editing), (std::vector<double>{40, 60, 80}));
    EXPECT_EQ(editing.dragging, 1U);
}

TEST(CurveRemove, TakesThePointUnderThePointer) {
    Owned editing = usual();
    editing.removePoint(at(60, 0.35), plotRect);
    EXPECT_EQ(xs(editing), (std::vector<double>{40, 80, 95}));
}

TEST(CurveRemove, TakesNothingFromEmptySpace) {
    Owned editing = usual();
    editing.removePoint(at(60, 0.9), plotRect);
    EXPECT_EQ(editing, usual());
}

TEST(CurveRemove, LeavesTwoPoints) {
    Owned editing = withPoints(3);
    editing.removePoint(at(25, 0.5), plotRect);
    EXPECT_EQ(xs(editing), (std::vector<double>{35, 45}));
    editing.removePoint(at(35, 0.5), plotRect);
    EXPECT_EQ(xs(editing), (std::vector<double>{35, 45}));
}

TEST(CurveDrag, LeavesAPointThatIsPressedWithoutRoomAtItsPlaceInTheList) {
    Owned editing = editingOf({{50, 0.1}, {50.2, 0.5}, {50.4, 0.9}, {80, 1.0}});
    const PlotPoint second = at(50.2, 0.5);
    editing.drag(second, second, plotRect);
    EXPECT_EQ(editing.dragging, 1U);
    EXPECT_EQ(xs(editing), (std::vector<double>{50, 49.4, 50.4, 80}));
    EXPECT_EQ(editing.curve.points[1].speed, 0.5);
}

TEST(CurveDrag, AsksForNothingWhileThePointerStaysWithinAUnit) {
    CurveEditing editing = usual();
    EXPECT_EQ(editing.takeHold(at(60, 0.35), plotRect), std::nullopt);
    EXPECT_EQ(editing.drag(at(60.4, 0.352), plotRect), std::nullopt);
    EXPECT_EQ(editing.drag(at(61, 0.35), plotRect), CurveEdit(curveEdit::Move{1, {61, 0.35}}));
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
    Owned editing = usual();
    editing.drag(at(60, 0.35), at(65, 0.5), plotRect);
    editing.replace(Curve(editing.curve));
    EXPECT_EQ(editing.dragging, 1U);
    editing.replace({{{10, 0.0}}});
    EXPECT_EQ(editing.dragging, std::nullopt);
    EXPECT_EQ(editing.chosen, std::nullopt);
}

TEST(CurveKeys, ChooseAPointFromEitherEnd) {
    Owned editing = usual();
    editing.choose(CurveEditing::Direction::right);
    EXPECT_EQ(editing.chosen, 0U);
    editing = usual();
    editing.choose(CurveEditing::Direction::left);
    EXPECT_EQ(editing.chosen, 3U);
}

TEST(CurveKeys, StopAtTheOuterPoints) {
    Owned editing = usual();
    editing.chosen = 3;
    editing.choose(CurveEditing::Direction::right);
    EXPECT_EQ(editing.chosen, 3U);
    editing.choose(CurveEditing::Direction::left);
    EXPECT_EQ(editing.chosen, 2U);
    editing.chosen = 0;
    editing.choose(CurveEditing::Direction::left);
    EXPECT_EQ(editing.chosen, 0U);
}

TEST(CurveKeys, ChooseNothingOnAnEmptyCurve) {
    Owned editing = editingOf({});
    editing.choose(CurveEditing::Direction::right);
    editing.moveChosen(1, 1);
    editing.removeChosen();
    EXPECT_EQ(editing, editingOf({}));
}

TEST(CurveKeys, MoveTheChosenPointByUnitsAndPercents) {
    Owned editing = usual();
    editing.chosen = 1;
    editing.moveChosen(1, 0);
    editing.moveChosen(0, -10);
    EXPECT_EQ(editing.curve.points[1], (CurvePoint{61, 0.25}));
}

TEST(CurveKeys, KeepWholePercentsOverManySteps) {
    Owned editing = usual();
    editing.chosen = 0;
    for (int step = 0; step < 47; ++step)
        editing.moveChosen(0, 1);
    EXPECT_EQ(editing.curve.points[0].speed, 0.57);
}

TEST(CurveKeys, MoveWithinTheRulesOfDragging) {
    Owned editing = usual();
    editing.chosen = 1;
    editing.moveChosen(100, 0);
    EXPECT_EQ(editing.curve.points[1].x, 79);
    editing.moveChosen(-100, 0);
    EXPECT_EQ(editing.curve.points[1].x, 41);
    editing.chosen = 0;
    editing.moveChosen(-100, -100);
    EXPECT_EQ(editing.curve.points[0], (CurvePoint{20, 0}));
    editing.chosen = 3;
    editing.moveChosen(100, 100);
    EXPECT_EQ(editing.curve.points[3], (CurvePoint{110, 1}));
}

TEST(CurveKeys, InsertMidwayToTheNextPoint) {
    Owned editing = usual();
    editing.chosen = 1;
    editing.insertAfterChosen();
    EXPECT_EQ(editing.curve.points[2], (CurvePoint{70, 0.55}));
    EXPECT_EQ(editing.chosen, 2U);
}

TEST(CurveKeys, InsertMidwayToTheEndAfterTheLastPoint) {
    Owned editing = usual();
    editing.chosen = 3;
    editing.insertAfterChosen();
    EXPECT_EQ(editing.curve.points[4], (CurvePoint{103, 1}));
    editing.curve.points[4].x = 110;
    editing.insertAfterChosen();
    EXPECT_EQ(editing.curve.points.size(), 5U);
}

TEST(CurveKeys, InsertNothingWhereThereIsNoRoom) {
    Owned editing = editingOf({{40, 0.1}, {41, 0.3}, {43, 0.9}});
    editing.chosen = 0;
    editing.insertAfterChosen();
    EXPECT_EQ(editing.curve.points.size(), 3U);
    editing.chosen = 1;
    editing.insertAfterChosen();
    EXPECT_EQ(xs(editing), (std::vector<double>{40, 41, 42, 43}));
}

TEST(CurveKeys, InsertNothingIntoEightPoints) {
    Owned editing = withPoints(8);
    editing.chosen = 0;
    editing.insertAfterChosen();
    EXPECT_EQ(editing.curve.points.size(), 8U);
}

TEST(CurveKeys, StartAnEmptyCurve) {
    Owned editing = editingOf({});
    editing.insertAfterChosen();
    EXPECT_EQ(editing.curve.points, (std::vector<CurvePoint>{{65, 0.5}}));
    editing.insertAfterChosen();
    EXPECT_EQ(editing.curve.points.size(), 2U);
}

TEST(CurveKeys, RemoveTheChosenPointAndChooseTheNext) {
    Owned editing = usual();
    editing.chosen = 1;
    editing.removeChosen();
    EXPECT_EQ(xs(editing), (std::vector<double>{40, 80, 95}));
    EXPECT_EQ(editing.chosen, 1U);
    editing.chosen = 2;
    editing.removeChosen();
    EXPECT_EQ(editing.chosen, 1U);
    editing.removeChosen();
    EXPECT_EQ(editing.curve.points.size(), 2U);
}

TEST(CurveKeys, MoveAPointBesideThePlotUpAndDownWhereItIs) {
    Owned editing = editingOf({{5, 0.1}, {60, 0.35}, {115, 0.5}});
    editing.chosen = 2;
    editing.moveChosen(0, 1);
    EXPECT_EQ(editing.curve.points[2], (CurvePoint{115, 0.51}));
    editing.chosen = 0;
    editing.moveChosen(0, -10);
    EXPECT_EQ(editing.curve.points[0], (CurvePoint{5, 0}));
}

TEST(CurveKeys, MoveAPointWithoutRoomUpAndDownWhereItIs) {
    Owned editing = editingOf({{40, 0.1}, {40.5, 0.35}, {41, 0.5}});
    editing.chosen = 1;
    editing.moveChosen(0, 1);
    EXPECT_EQ(editing.curve.points[1], (CurvePoint{40.5, 0.36}));
}

TEST(CurveKeys, MoveAPointSidewaysAtItsSpeed) {
    Owned editing = editingOf({{40, 0.123}, {60, 1.5}});
    editing.chosen = 0;
    editing.moveChosen(1, 0);
    EXPECT_EQ(editing.curve.points[0], (CurvePoint{41, 0.123}));
    editing.chosen = 1;
    editing.moveChosen(-1, 0);
    EXPECT_EQ(editing.curve.points[1], (CurvePoint{59, 1.5}));
}

TEST(CurveDrag, ChangesNothingOnAPlotWithoutRoom) {
    for (const PlotRect& flat : {PlotRect{0, 0, 0, 200}, PlotRect{0, 0, 200, 0}}) {
        Owned editing = usual();
        editing.drag({5, 5}, {7, 7}, flat);
        editing.removePoint({0, 0}, flat);
        EXPECT_EQ(editing, usual());
    }
}

} // namespace
} // namespace tervale
