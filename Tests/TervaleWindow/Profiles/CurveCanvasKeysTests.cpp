#include "TervaleWindow/Profiles/CurveCanvasFixture.h"

namespace tervale {
namespace {

class CurveCanvasKeys : public CurveCanvasFixture {};

TEST_F(CurveCanvasKeys, TakesTheFocusWithItsFirstPointChosen) {
    EXPECT_EQ(canvas.focusPolicy(), Qt::StrongFocus);
    EXPECT_TRUE(canvas.hasFocus());
    EXPECT_EQ(canvas.state().chosen, 0U);
    EXPECT_EQ(canvas.chosenPosition().toStdString(), "40 °C, 10%");
}

TEST_F(CurveCanvasKeys, ChoosesAndMovesPointsByKeys) {
    key(Qt::Key_Right);
    EXPECT_EQ(canvas.state().chosen, 1U);
    key(Qt::Key_Right, Qt::AltModifier);
    key(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(points()[1], (CurvePoint{61, 0.36}));
    key(Qt::Key_Left, Qt::AltModifier | Qt::ShiftModifier);
    key(Qt::Key_Down, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(points()[1], (CurvePoint{51, 0.26}));
    key(Qt::Key_Left);
    EXPECT_EQ(canvas.state().chosen, 0U);
    EXPECT_EQ(edits.size(), 4U);
}

TEST_F(CurveCanvasKeys, AddsAndRemovesPointsByKeys) {
    key(Qt::Key_Right);
    key(Qt::Key_Insert);
    EXPECT_EQ(points()[2], (CurvePoint{70, 0.55}));
    EXPECT_EQ(canvas.state().chosen, 2U);
    key(Qt::Key_Delete);
    EXPECT_EQ(points(), usual.points);
    for (int count = 0; count < 5; ++count)
        key(Qt::Key_Backspace);
    EXPECT_EQ(points().size(), 2U);
}

TEST_F(CurveCanvasKeys, LeavesUpAndDownToWhatScrolls) {
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Down, {});
    event.setAccepted(true);
    QApplication::sendEvent(&canvas, &event);
    EXPECT_FALSE(event.isAccepted());
}

TEST_F(CurveCanvasKeys, LeavesTheKeysAloneWhileAPointIsHeld) {
    press(at(60, 0.35));
    key(Qt::Key_Delete);
    key(Qt::Key_Right);
    key(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(canvas.state().chosen, 1U);
    EXPECT_EQ(points(), usual.points);
    release(at(60, 0.35));
    key(Qt::Key_Delete);
    EXPECT_EQ(points().size(), 3U);
}

TEST_F(CurveCanvasKeys, AddsAPointByThePlusKey) {
    key(Qt::Key_Plus);
    ASSERT_EQ(points().size(), 5U);
    EXPECT_EQ(points()[1].x, 50);
}

} // namespace
} // namespace tervale
