#include "TervaleWindow/Profiles/CurveCanvasFixture.h"

#include <QToolTip>

namespace tervale {
namespace {

class CurveCanvasPointer : public CurveCanvasFixture {};

TEST_F(CurveCanvasPointer, IsTwoHundredAndFortyHigh) {
    EXPECT_EQ(canvas.sizeHint().height(), 240);
    EXPECT_EQ(canvas.plot(), (PlotRect{40, 12, 450, 202}));
}

TEST_F(CurveCanvasPointer, DragsAPointAndReportsEveryChange) {
    press(at(60, 0.35));
    moveTo(at(65, 0.5));
    moveTo(at(70, 0.6));
    EXPECT_EQ(canvas.state().dragging, 1U);
    release(at(70, 0.6));
    EXPECT_EQ(canvas.state().dragging, std::nullopt);
    EXPECT_EQ(points()[1], (CurvePoint{70, 0.6}));
    EXPECT_EQ(edits, (std::vector<CurveEdit>{curveEdit::Move{1, {65, 0.5}},
                                             curveEdit::Move{1, {70, 0.6}}}));
}

TEST_F(CurveCanvasPointer, AddsAPointOnAPressWithoutAnyMovement) {
    press(at(70, 0.2));
    EXPECT_EQ(points().size(), 5U);
    EXPECT_EQ(canvas.state().dragging, 2U);
    release(at(70, 0.2));
    EXPECT_EQ(points()[2], (CurvePoint{70, 0.2}));
    EXPECT_EQ(edits.size(), 1U);
}

TEST_F(CurveCanvasPointer, RemovesAPointOnADoubleClick) {
    doubleClick(at(60, 0.35));
    EXPECT_EQ(points(), (std::vector<CurvePoint>{{40, 0.1}, {80, 0.75}, {95, 1.0}}));
}

TEST_F(CurveCanvasPointer, LeavesNothingBehindADoubleClickOnEmptySpace) {
    doubleClick(at(70, 0.2));
    EXPECT_EQ(points(), usual.points);
}

TEST_F(CurveCanvasPointer, DragsWithTheSecondPressOfTwo) {
    QTest::mouseClick(&canvas, Qt::LeftButton, {}, at(60, 0.35));
    pressAgain(at(60, 0.35));
    moveTo(at(65, 0.6));
    release(at(65, 0.6));
    EXPECT_EQ(points()[1], (CurvePoint{65, 0.6}));
    EXPECT_EQ(points().size(), 4U);
}

TEST_F(CurveCanvasPointer, KeepsTwoPointsOnADoubleClick) {
    canvas.setCurve({{{40, 0.1}, {80, 0.75}}});
    doubleClick(at(40, 0.1));
    EXPECT_EQ(points().size(), 2U);
}

TEST_F(CurveCanvasPointer, LeavesTheOtherButtonsAlone) {
    QTest::mouseClick(&canvas, Qt::RightButton, {}, at(70, 0.2));
    EXPECT_EQ(points(), usual.points);
}

TEST_F(CurveCanvasPointer, StopsADragWhenItIsGivenAnotherCurve) {
    press(at(60, 0.35));
    canvas.setCurve({{{30, 0.1}, {90, 0.9}}});
    moveTo(at(50, 0.5));
    release(at(50, 0.5));
    EXPECT_EQ(points(), (std::vector<CurvePoint>{{30, 0.1}, {90, 0.9}}));
    EXPECT_TRUE(edits.empty());
}

TEST(CurveCanvasWithoutAnOwner, ChangesNothingByItself) {
    CurveCanvas canvas({20, 110}, QStringLiteral("°C"), insets);
    canvas.resize(504, 240);
    canvas.setCurve(usual);
    canvas.show();
    QTest::mouseClick(&canvas, Qt::LeftButton, {}, {300, 40});
    QTest::keyClick(&canvas, Qt::Key_Delete);
    QTest::keyClick(&canvas, Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(canvas.state().curve, usual);
    EXPECT_FALSE(canvas.grab().isNull());
}

TEST_F(CurveCanvasPointer, TellsOfNothingThatItWasGiven) {
    canvas.setCurve({{{30, 0.1}, {90, 0.9}}});
    EXPECT_TRUE(edits.empty());
}

TEST_F(CurveCanvasPointer, ShowsThePositionWhileAPointMoves) {
    press(at(60, 0.35));
    moveTo(at(65, 0.5));
    EXPECT_EQ(QToolTip::text().toStdString(), "65 °C, 50%");
    release(at(65, 0.5));
    key(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(QToolTip::text().toStdString(), "66 °C, 50%");
}

TEST_F(CurveCanvasPointer, BeginsAnewAfterALostRelease) {
    press(at(60, 0.35));
    moveTo(at(65, 0.5));
    press(at(95, 1.0));
    EXPECT_EQ(canvas.state().dragging, 3U);
    release(at(95, 1.0));
    EXPECT_EQ(points(), (std::vector<CurvePoint>{{40, 0.1}, {65, 0.5}, {80, 0.75}, {95, 1.0}}));
}

TEST_F(CurveCanvasPointer, LetsGoOnceTheButtonIsNoLongerDown) {
    press(at(60, 0.35));
    const QPoint place = at(70, 0.5);
    QMouseEvent event(QEvent::MouseMove, place, canvas.mapToGlobal(place), Qt::NoButton,
                      Qt::RightButton, {});
    QApplication::sendEvent(&canvas, &event);
    EXPECT_EQ(canvas.state().dragging, std::nullopt);
    moveTo(at(75, 0.5));
    EXPECT_EQ(points(), usual.points);
}

TEST_F(CurveCanvasPointer, MarksThePointUnderThePointer) {
    const QImage before = canvas.grab().toImage();
    QTest::mouseMove(&canvas, at(60, 0.35) + QPoint(8, 0));
    EXPECT_EQ(canvas.state().hovered, 1U);
    EXPECT_EQ(canvas.cursor().shape(), Qt::OpenHandCursor);
    EXPECT_NE(canvas.grab().toImage(), before);
    QTest::mouseMove(&canvas, at(70, 0.1));
    EXPECT_EQ(canvas.state().hovered, std::nullopt);
    EXPECT_EQ(canvas.cursor().shape(), Qt::ArrowCursor);
    EXPECT_EQ(canvas.grab().toImage(), before);
}

TEST_F(CurveCanvasPointer, HoldsThePointThatIsDraggedBeyondItsReach) {
    press(at(60, 0.35));
    EXPECT_EQ(canvas.cursor().shape(), Qt::ClosedHandCursor);
    moveTo(at(100, 0.35));
    EXPECT_EQ(canvas.state().hovered, 1U);
    release(at(100, 0.35));
    EXPECT_EQ(canvas.state().hovered, std::nullopt);
    EXPECT_EQ(canvas.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(CurveCanvasPointer, MarksNoPointOnceThePointerHasLeftOrThePointHas) {
    QTest::mouseMove(&canvas, at(60, 0.35));
    canvas.setCurve({{{30, 0.1}, {90, 0.9}}});
    EXPECT_EQ(canvas.state().hovered, std::nullopt);
    canvas.setCurve(usual);
    EXPECT_EQ(canvas.state().hovered, 1U);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&canvas, &leave);
    EXPECT_EQ(canvas.state().hovered, std::nullopt);
}

/// A curve that has as many points as it may.
class FullCurveCanvas : public CurveCanvasPointer {
  protected:
    FullCurveCanvas() {
        Curve full;
        for (int index = 0; index < Profile::maxPoints; ++index)
            full.points.push_back({25.0 + 10 * index, 0.5});
        canvas.setCurve(full);
        QToolTip::hideText();
    }
    const std::string reason = "A curve has at most 8 points. Remove one to add another.";
};

TEST_F(FullCurveCanvas, SaysWhyAClickAddsNoPoint) {
    QTest::mouseClick(&canvas, Qt::LeftButton, {}, at(50, 0.1));
    EXPECT_EQ(points().size(), 8U);
    EXPECT_TRUE(QToolTip::isVisible());
    EXPECT_EQ(QToolTip::text().toStdString(), reason);
    // The toolkit takes a moment to hide a tip.
    EXPECT_FALSE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }, 500));
    // No longer than until something is done.
    press(at(25, 0.5));
    moveTo(at(26, 0.6));
    EXPECT_EQ(QToolTip::text().toStdString(), "26 °C, 60%");
}

TEST_F(FullCurveCanvas, SaysWhyAKeyAddsNoPoint) {
    key(Qt::Key_Delete);
    key(Qt::Key_Insert);
    EXPECT_EQ(points().size(), 8U);
    EXPECT_NE(QToolTip::text().toStdString(), reason);
    key(Qt::Key_Insert);
    EXPECT_EQ(points().size(), 8U);
    EXPECT_EQ(QToolTip::text().toStdString(), reason);
}

TEST_F(FullCurveCanvas, SaysNothingWhereTheLastPointIsAdded) {
    key(Qt::Key_Delete);
    QTest::mouseClick(&canvas, Qt::LeftButton, {}, at(105, 0.2));
    EXPECT_EQ(points().size(), 8U);
    EXPECT_NE(QToolTip::text().toStdString(), reason);
}

TEST(CurveCanvasSize, EditsNothingWithoutAnyRoom) {
    CurveCanvas canvas({20, 110}, QStringLiteral("°C"), insets);
    canvas.setCurve(usual);
    canvas.resize(10, 10);
    canvas.show();
    EXPECT_EQ(canvas.plot().width, 0);
    QTest::mouseClick(&canvas, Qt::LeftButton, {}, {5, 5});
    QTest::mouseDClick(&canvas, Qt::LeftButton, {}, {5, 5});
    EXPECT_EQ(canvas.state().curve, usual);
}

} // namespace
} // namespace tervale
