#include "TervaleWindow/Profiles/OwnedCurve.h"

#include <gtest/gtest.h>

namespace tervale {
namespace {

TEST(CurveKeys, ChooseAPointFromEitherEnd) {
    OwnedCurve editing = usual();
    editing.choose(CurveEditing::Direction::right);
    EXPECT_EQ(editing.chosen, 0U);
    editing = usual();
    editing.choose(CurveEditing::Direction::left);
    EXPECT_EQ(editing.chosen, 3U);
}

TEST(CurveKeys, StopAtTheOuterPoints) {
    OwnedCurve editing = usual();
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
    OwnedCurve editing = editingOf({});
    editing.choose(CurveEditing::Direction::right);
    editing.moveChosen(1, 1);
    editing.removeChosen();
    EXPECT_EQ(editing, editingOf({}));
}

TEST(CurveKeys, MoveTheChosenPointByUnitsAndPercents) {
    OwnedCurve editing = usual();
    editing.chosen = 1;
    editing.moveChosen(1, 0);
    editing.moveChosen(0, -10);
    EXPECT_EQ(editing.curve.points[1], (CurvePoint{61, 0.25}));
}

TEST(CurveKeys, KeepWholePercentsOverManySteps) {
    OwnedCurve editing = usual();
    editing.chosen = 0;
    for (int step = 0; step < 47; ++step)
        editing.moveChosen(0, 1);
    EXPECT_EQ(editing.curve.points[0].speed, 0.57);
}

TEST(CurveKeys, MoveWithinTheRulesOfDragging) {
    OwnedCurve editing = usual();
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
    OwnedCurve editing = usual();
    editing.chosen = 1;
    editing.insertAfterChosen();
    EXPECT_EQ(editing.curve.points[2], (CurvePoint{70, 0.55}));
    EXPECT_EQ(editing.chosen, 2U);
}

TEST(CurveKeys, InsertMidwayToTheEndAfterTheLastPoint) {
    OwnedCurve editing = usual();
    editing.chosen = 3;
    editing.insertAfterChosen();
    EXPECT_EQ(editing.curve.points[4], (CurvePoint{103, 1}));
    editing.curve.points[4].x = 110;
    editing.insertAfterChosen();
    EXPECT_EQ(editing.curve.points.size(), 5U);
}

TEST(CurveKeys, InsertNothingWhereThereIsNoRoom) {
    OwnedCurve editing = editingOf({{40, 0.1}, {41, 0.3}, {43, 0.9}});
    editing.chosen = 0;
    editing.insertAfterChosen();
    EXPECT_EQ(editing.curve.points.size(), 3U);
    editing.chosen = 1;
    editing.insertAfterChosen();
    EXPECT_EQ(xs(editing), (std::vector<double>{40, 41, 42, 43}));
}

TEST(CurveKeys, InsertNothingIntoEightPoints) {
    OwnedCurve editing = withPoints(8);
    editing.chosen = 0;
    editing.insertAfterChosen();
    EXPECT_EQ(editing.curve.points.size(), 8U);
}

TEST(CurveKeys, StartAnEmptyCurve) {
    OwnedCurve editing = editingOf({});
    editing.insertAfterChosen();
    EXPECT_EQ(editing.curve.points, (std::vector<CurvePoint>{{65, 0.5}}));
    editing.insertAfterChosen();
    EXPECT_EQ(editing.curve.points.size(), 2U);
}

TEST(CurveKeys, RemoveTheChosenPointAndChooseTheNext) {
    OwnedCurve editing = usual();
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
    OwnedCurve editing = editingOf({{5, 0.1}, {60, 0.35}, {115, 0.5}});
    editing.chosen = 2;
    editing.moveChosen(0, 1);
    EXPECT_EQ(editing.curve.points[2], (CurvePoint{115, 0.51}));
    editing.chosen = 0;
    editing.moveChosen(0, -10);
    EXPECT_EQ(editing.curve.points[0], (CurvePoint{5, 0}));
}

TEST(CurveKeys, MoveAPointWithoutRoomUpAndDownWhereItIs) {
    OwnedCurve editing = editingOf({{40, 0.1}, {40.5, 0.35}, {41, 0.5}});
    editing.chosen = 1;
    editing.moveChosen(0, 1);
    EXPECT_EQ(editing.curve.points[1], (CurvePoint{40.5, 0.36}));
}

TEST(CurveKeys, MoveAPointSidewaysAtItsSpeed) {
    OwnedCurve editing = editingOf({{40, 0.123}, {60, 1.5}});
    editing.chosen = 0;
    editing.moveChosen(1, 0);
    EXPECT_EQ(editing.curve.points[0], (CurvePoint{41, 0.123}));
    editing.chosen = 1;
    editing.moveChosen(-1, 0);
    EXPECT_EQ(editing.curve.points[1], (CurvePoint{59, 1.5}));
}

} // namespace
} // namespace tervale
