#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Profiles/CurveCanvas.h"
#include "TervaleWindow/Profiles/CurveEditor.h"

#include <QAccessible>
#include <QLabel>
#include <QScrollArea>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

namespace tervale {
namespace {

constexpr PlotInsets insets{12, 40, 26, 14};
const Curve usual{{{40, 0.1}, {60, 0.35}, {80, 0.75}, {95, 1.0}}};

class CurveCanvasTest : public testing::Test {
  protected:
    CurveCanvasTest() {
        // Five pixels a degree.
        canvas.resize(504, 240);
        canvas.setCurve(usual);
        canvas.show();
        canvas.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&canvas));
        QObject::connect(&canvas, &CurveCanvas::edited, &canvas, [this](const CurveEdit& edit) {
            Curve curve = canvas.state().curve;
            EXPECT_TRUE(perform(edit, curve));
            canvas.setCurve(curve);
            edits.push_back(edit);
        });
    }

    QPoint at(double x, double speed) const {
        const PlotPoint point = CurvePlot{canvas.plot(), {20, 110}}.position({x, speed});
        return QPointF(point.x, point.y).toPoint();
    }
    std::vector<CurvePoint> points() const { return canvas.state().curve.points; }
    void press(QPoint place) { QTest::mousePress(&canvas, Qt::LeftButton, {}, place); }
    void moveTo(QPoint place) {
        QMouseEvent event(QEvent::MouseMove, place, canvas.mapToGlobal(place), Qt::NoButton,
                          Qt::LeftButton, {});
        QApplication::sendEvent(&canvas, &event);
    }
    void release(QPoint place) { QTest::mouseRelease(&canvas, Qt::LeftButton, {}, place); }
    /// The second press of two, and its release.
    void pressAgain(QPoint place) {
        QMouseEvent event(QEvent::MouseButtonDblClick, place, canvas.mapToGlobal(place),
                          Qt::LeftButton, Qt::LeftButton, {});
        QApplication::sendEvent(&canvas, &event);
    }
    void doubleClick(QPoint place) {
        press(place);
        release(place);
        pressAgain(place);
        release(place);
    }
    void key(Qt::Key which, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&canvas, which, modifiers);
    }
    QColor pixel(const QImage& image, QPoint place) const {
        return image.pixelColor(place * image.devicePixelRatio());
    }

    CurveCanvas canvas{{20, 110}, QStringLiteral("°C"), insets};
    /// What was asked for and done.
    std::vector<CurveEdit> edits;
};

TEST_F(CurveCanvasTest, IsTwoHundredAndFortyHigh) {
    EXPECT_EQ(canvas.sizeHint().height(), 240);
    EXPECT_EQ(canvas.plot(), (PlotRect{40, 12, 450, 202}));
}

TEST_F(CurveCanvasTest, DragsAPointAndReportsEveryChange) {
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

TEST_F(CurveCanvasTest, AddsAPointOnAPressWithoutAnyMovement) {
    press(at(70, 0.2));
    EXPECT_EQ(points().size(), 5U);
    EXPECT_EQ(canvas.state().dragging, 2U);
    release(at(70, 0.2));
    EXPECT_EQ(points()[2], (CurvePoint{70, 0.2}));
    EXPECT_EQ(edits.size(), 1U);
}

TEST_F(CurveCanvasTest, RemovesAPointOnADoubleClick) {
    doubleClick(at(60, 0.35));
    EXPECT_EQ(points(), (std::vector<CurvePoint>{{40, 0.1}, {80, 0.75}, {95, 1.0}}));
}

TEST_F(CurveCanvasTest, LeavesNothingBehindADoubleClickOnEmptySpace) {
    doubleClick(at(70, 0.2));
    EXPECT_EQ(points(), usual.points);
}

TEST_F(CurveCanvasTest, DragsWithTheSecondPressOfTwo) {
    QTest::mouseClick(&canvas, Qt::LeftButton, {}, at(60, 0.35));
    pressAgain(at(60, 0.35));
    moveTo(at(65, 0.6));
    release(at(65, 0.6));
    EXPECT_EQ(points()[1], (CurvePoint{65, 0.6}));
    EXPECT_EQ(points().size(), 4U);
}

TEST_F(CurveCanvasTest, KeepsTwoPointsOnADoubleClick) {
    canvas.setCurve({{{40, 0.1}, {80, 0.75}}});
    doubleClick(at(40, 0.1));
    EXPECT_EQ(points().size(), 2U);
}

TEST_F(CurveCanvasTest, LeavesTheOtherButtonsAlone) {
    QTest::mouseClick(&canvas, Qt::RightButton, {}, at(70, 0.2));
    EXPECT_EQ(points(), usual.points);
}

TEST_F(CurveCanvasTest, StopsADragWhenItIsGivenAnotherCurve) {
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

TEST_F(CurveCanvasTest, TellsOfNothingThatItWasGiven) {
    canvas.setCurve({{{30, 0.1}, {90, 0.9}}});
    EXPECT_TRUE(edits.empty());
}

TEST_F(CurveCanvasTest, TakesTheFocusWithItsFirstPointChosen) {
    EXPECT_EQ(canvas.focusPolicy(), Qt::StrongFocus);
    EXPECT_TRUE(canvas.hasFocus());
    EXPECT_EQ(canvas.state().chosen, 0U);
    EXPECT_EQ(canvas.chosenPosition().toStdString(), "40 °C, 10%");
}

TEST_F(CurveCanvasTest, ChoosesAndMovesPointsByKeys) {
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

TEST_F(CurveCanvasTest, AddsAndRemovesPointsByKeys) {
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

TEST_F(CurveCanvasTest, LeavesUpAndDownToWhatScrolls) {
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Down, {});
    event.setAccepted(true);
    QApplication::sendEvent(&canvas, &event);
    EXPECT_FALSE(event.isAccepted());
}

TEST_F(CurveCanvasTest, ShowsThePositionWhileAPointMoves) {
    press(at(60, 0.35));
    moveTo(at(65, 0.5));
    EXPECT_EQ(QToolTip::text().toStdString(), "65 °C, 50%");
    release(at(65, 0.5));
    key(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(QToolTip::text().toStdString(), "66 °C, 50%");
}

TEST_F(CurveCanvasTest, SpeaksTheChosenPoint) {
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&canvas);
    ASSERT_NE(spoken, nullptr);
    EXPECT_EQ(spoken->text(QAccessible::Name).toStdString(), "Fan speed curve");
    EXPECT_EQ(spoken->text(QAccessible::Value).toStdString(), "40 °C, 10%");
    key(Qt::Key_Right);
    EXPECT_EQ(spoken->text(QAccessible::Value).toStdString(), "60 °C, 35%");
    EXPECT_EQ(spoken->text(QAccessible::Description).toStdString(), "60 °C, 35%");
    ASSERT_NE(spoken->valueInterface(), nullptr);
    EXPECT_EQ(spoken->valueInterface()->currentValue().toString().toStdString(), "60 °C, 35%");
}

TEST_F(CurveCanvasTest, BeginsAnewAfterALostRelease) {
    press(at(60, 0.35));
    moveTo(at(65, 0.5));
    press(at(95, 1.0));
    EXPECT_EQ(canvas.state().dragging, 3U);
    release(at(95, 1.0));
    EXPECT_EQ(points(), (std::vector<CurvePoint>{{40, 0.1}, {65, 0.5}, {80, 0.75}, {95, 1.0}}));
}

TEST_F(CurveCanvasTest, LetsGoOnceTheButtonIsNoLongerDown) {
    press(at(60, 0.35));
    const QPoint place = at(70, 0.5);
    QMouseEvent event(QEvent::MouseMove, place, canvas.mapToGlobal(place), Qt::NoButton,
                      Qt::RightButton, {});
    QApplication::sendEvent(&canvas, &event);
    EXPECT_EQ(canvas.state().dragging, std::nullopt);
    moveTo(at(75, 0.5));
    EXPECT_EQ(points(), usual.points);
}

TEST_F(CurveCanvasTest, LeavesTheKeysAloneWhileAPointIsHeld) {
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

TEST_F(CurveCanvasTest, AddsAPointByThePlusKey) {
    key(Qt::Key_Plus);
    ASSERT_EQ(points().size(), 5U);
    EXPECT_EQ(points()[1].x, 50);
}

class Repaints final : public QObject {
  public:
    explicit Repaints(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int count = 0;
};

TEST_F(CurveCanvasTest, RepaintsOnceForManyChangesWithinAFrame) {
    QCoreApplication::processEvents();
    Repaints repaints(canvas);
    press(at(60, 0.35));
    for (int x = 61; x < 75; ++x)
        moveTo(at(x, 0.5));
    EXPECT_EQ(repaints.count, 0);
    canvas.setMarker(50);
    QTRY_VERIFY(repaints.count > 0);
    EXPECT_EQ(repaints.count, 1);
}

TEST_F(CurveCanvasTest, RepaintsNothingForTheSameReading) {
    canvas.setMarker(50);
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    Repaints repaints(canvas);
    canvas.setMarker(50);
    canvas.setCurve(Curve(usual));
    QCoreApplication::processEvents();
    EXPECT_EQ(repaints.count, 0);
}

TEST_F(CurveCanvasTest, PaintsPointsAndLineInTheColoursOfTheirTemperature) {
    const QImage image = canvas.grab().toImage();
    EXPECT_EQ(pixel(image, at(60, 0.35)), QColor(Qt::white));
    EXPECT_EQ(pixel(image, at(60, 0.35) + QPoint(6, 0)).rgb(), Theme::thermal(60).rgb());
    const QColor line = pixel(image, at(102, 1.0));
    EXPECT_NEAR(line.redF(), Theme::thermal(102).redF(), 0.02);
    EXPECT_NEAR(line.greenF(), Theme::thermal(102).greenF(), 0.02);
}

TEST_F(CurveCanvasTest, PaintsTheMarkerWhereTheReadingIs) {
    const QImage before = canvas.grab().toImage();
    canvas.setMarker(50);
    const QImage after = canvas.grab().toImage();
    int changed = 0;
    for (int y = 30; y < 150; ++y)
        changed += before.pixel(at(50, 0).x(), y) != after.pixel(at(50, 0).x(), y) ? 1 : 0;
    // Four pixels on, three off.
    EXPECT_GT(changed, 60);
    EXPECT_LT(changed, 110);
}

TEST_F(CurveCanvasTest, PaintsTheMarkerOfAReadingBesideThePlotAsFarAsTheCanvasReaches) {
    const auto changedAt = [this](double marker, int x) {
        canvas.setMarker(std::nullopt);
        const QImage before = canvas.grab().toImage();
        canvas.setMarker(marker);
        const QImage after = canvas.grab().toImage();
        int changed = 0;
        for (int y = 30; y < 150; ++y)
            changed += before.pixel(x, y) != after.pixel(x, y) ? 1 : 0;
        return changed;
    };
    const int beyond = at(112, 0).x();
    ASSERT_GT(beyond, canvas.plot().right());
    ASSERT_LT(beyond, canvas.width());
    EXPECT_GT(changedAt(112, beyond), 60);
    EXPECT_GT(changedAt(17, at(17, 0).x()), 60);
    EXPECT_EQ(changedAt(150, canvas.width() - 1), 0);
}

TEST_F(CurveCanvasTest, KeepsTheMarkersLabelOnTheCanvas) {
    canvas.setMarker(20);
    const QImage cold = canvas.grab().toImage();
    canvas.setMarker(109);
    const QImage hot = canvas.grab().toImage();
    const auto labelled = [&](int left, int right) {
        int changed = 0;
        for (int x = left; x < right; ++x)
            for (int y = 16; y < 24; ++y)
                changed += cold.pixel(x, y) != hot.pixel(x, y) ? 1 : 0;
        return changed > 20;
    };
    const int line = at(109, 0).x();
    EXPECT_TRUE(labelled(line - 60, line - 5));
    EXPECT_FALSE(labelled(line + 5, canvas.width()));
}

TEST_F(CurveCanvasTest, EnduresImpossibleNumbers) {
    canvas.setCurve({{{-1e300, 1e300}, {1e300, -1e300}}});
    canvas.setMarker(1e300);
    const QImage image = canvas.grab().toImage();
    EXPECT_EQ(pixel(image, {canvas.width() / 2, 4}), pixel(image, {canvas.width() / 2 + 3, 4}));
    EXPECT_EQ(points(), (std::vector<CurvePoint>{{-1e300, 1e300}, {1e300, -1e300}}));
    key(Qt::Key_Right);
    EXPECT_EQ(canvas.chosenPosition().toStdString(), "1000000 °C, -100000000%");
    key(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(points()[1], (CurvePoint{1e300, 0}));
    key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(points()[1], (CurvePoint{110, 0}));
}

TEST_F(CurveCanvasTest, FollowsThePaletteFromLightToDark) {
    canvas.setPalette(lightPalette());
    const QImage light = canvas.grab().toImage();
    canvas.setPalette(darkPalette());
    const QImage dark = canvas.grab().toImage();
    EXPECT_GT(pixel(light, {60, 40}).lightnessF(), 0.8);
    EXPECT_LT(pixel(dark, {60, 40}).lightnessF(), 0.3);
}

TEST(CurveLoadCanvas, PaintsInTheAccentColour) {
    CurveCanvas canvas({0, 100}, QStringLiteral("%"), insets);
    canvas.resize(554, 240);
    canvas.setCurve({{{10, 0.0}, {50, 0.5}, {90, 1.0}}});
    const QImage image = canvas.grab().toImage();
    EXPECT_EQ(image.pixelColor(290 + 6, 113).rgb(), Theme::accent().rgb());
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

QStringList textsOf(const QWidget& widget) {
    QStringList texts;
    for (const QLabel* label : widget.findChildren<QLabel*>())
        texts.push_back(label->text());
    return texts;
}

TEST(CurveEditorCaptions, NameTheAxesAndHelp) {
    const CurveEditor temperature({20, 110}, QStringLiteral("°C"), insets);
    EXPECT_EQ(textsOf(temperature),
              (QStringList{"Fan speed", "Temperature",
                           "Drag a point to move it. Click empty space to add one, double-click a "
                           "point to remove it."}));
    const CurveEditor load({0, 100}, QStringLiteral("%"), insets);
    EXPECT_TRUE(textsOf(load).contains("Load"));
    EXPECT_FALSE(textsOf(load).contains("Temperature"));
}

} // namespace
} // namespace tervale
