#include "TervaleWindow/Profiles/OwnedCurve.h"

#include <gtest/gtest.h>

namespace tervale {
namespace {

TEST(CurveDrag, MovesThePointThatWasPressed) {
    OwnedCurve editing = usual();
    editing.drag(at(60, 0.35), at(65, 0.5), plotRect);
    EXPECT_EQ(editing.dragging, 1U);
    EXPECT_EQ(editing.curve.points[1], (CurvePoint{65, 0.5}));
    editing.endDrag();
    EXPECT_EQ(editing.dragging, std::nullopt);
}

TEST(CurveDrag, KeepsItsPointThroughTheWholeGesture) {
    OwnedCurve editing = usual();
    const PlotPoint start = at(60, 0.35);
    editing.drag(start, start, plotRect);
    editing.drag(start, at(79, 0.75), plotRect);
    editing.drag(start, at(50, 0.2), plotRect);
    EXPECT_EQ(editing.curve.points[1], (CurvePoint{50, 0.2}));
    EXPECT_EQ(editing.curve.points[2], (CurvePoint{80, 0.75}));
}

TEST(CurveDrag, PutsAPointThatIsPressedBesideItsMiddleUnderThePointer) {
    OwnedCurve editing = usual();
    const PlotPoint beside = at(61, 0.37);
    editing.drag(beside, beside, plotRect);
    EXPECT_EQ(editing.curve.points[1], (CurvePoint{61, 0.37}));
}

TEST(CurveDrag, StopsOneUnitBesideTheNeighbours) {
    OwnedCurve editing = usual();
    editing.drag(at(60, 0.35), at(110, 0.35), plotRect);
    EXPECT_EQ(editing.curve.points[1].x, 79);
    editing.drag(at(60, 0.35), at(20, 0.35), plotRect);
    EXPECT_EQ(editing.curve.points[1].x, 41);
}

TEST(CurveDrag, StopsTheOuterPointsAtTheEndsOfTheRange) {
    OwnedCurve editing = usual();
    editing.drag(at(40, 0.1), {-500, 0}, plotRect);
    EXPECT_EQ(editing.curve.points[0], (CurvePoint{20, 1.0}));
    editing.endDrag();
    editing.drag(at(95, 1.0), {5000, 5000}, plotRect);
    EXPECT_EQ(editing.curve.points[3], (CurvePoint{110, 0.0}));
}

TEST(CurveDrag, LeavesTheOrderOfSpeedsToTheUser) {
    OwnedCurve editing = usual();
    editing.drag(at(80, 0.75), at(80, 0.0), plotRect);
    EXPECT_EQ(editing.curve.points[2], (CurvePoint{80, 0.0}));
}

TEST(CurveDrag, StaysLeftOfTheNextPointWhereThereIsNoRoom) {
    OwnedCurve editing = editingOf({{40, 0.0}, {40.5, 0.5}, {41, 1.0}});
    editing.drag(at(40.5, 0.5), at(60, 0.5), plotRect);
    EXPECT_EQ(editing.curve.points[1], (CurvePoint{40, 0.5}));
}

TEST(CurveDrag, LeavesAPointThatIsPressedWithoutRoomAtItsPlaceInTheList) {
    OwnedCurve editing = editingOf({{50, 0.1}, {50.2, 0.5}, {50.4, 0.9}, {80, 1.0}});
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

TEST(CurveDrag, ChangesNothingOnAPlotWithoutRoom) {
    for (const PlotRect& flat : {PlotRect{0, 0, 0, 200}, PlotRect{0, 0, 200, 0}}) {
        OwnedCurve editing = usual();
        editing.drag({5, 5}, {7, 7}, flat);
        editing.removePoint({0, 0}, flat);
        EXPECT_EQ(editing, usual());
    }
}

} // namespace
} // namespace tervale
