#include "ControlsFixture.h"
#include "TervaleWindow/Controls/FractionSlider.h"
#include "TervaleWindow/Style/SliderPainting.h"

#include <QSignalSpy>
#include <QWheelEvent>

#include <cmath>
#include <limits>

using namespace tervale;

namespace {

struct FractionSliderTest : ControlsFixture {
    QWidget window;
    FractionSlider slider{&window};
    QSignalSpy editing{&slider, &FractionSlider::editingChanged};
    QSignalSpy moves{&slider, &FractionSlider::fractionChanged};

    FractionSliderTest() {
        window.resize(260, 60);
        slider.setGeometry(20, 10, 226, 26); // the knob travels 200 pixels
        present(window);
        slider.setFraction(0.5);
    }

    QPoint at(double fraction) const {
        return sliderLayout(slider.rect(), fraction, slider.layoutDirection())
            .knob.center()
            .toPoint();
    }

    void turnWheel(int delta) {
        const QPointF place = slider.rect().center();
        QWheelEvent event(place, slider.mapToGlobal(place), {}, QPoint(0, delta), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&slider, &event);
    }

    void sendKey(QEvent::Type type, int key, bool repeats) {
        QKeyEvent event(type, key, Qt::NoModifier, QString(), repeats);
        QApplication::sendEvent(&slider, &event);
    }

    /// What editingChanged has told so far, as "+" for its begin and "-" for its end.
    std::string reports() const {
        std::string text;
        for (const QList<QVariant>& arguments : editing)
            text += arguments.at(0).toBool() ? '+' : '-';
        return text;
    }
};

} // namespace

TEST_F(FractionSliderTest, KeepsTheFractionThatItIsGivenWithoutSignals) {
    slider.setFraction(0.4567);
    EXPECT_DOUBLE_EQ(slider.fraction(), 0.4567);
    EXPECT_EQ(slider.value(), 4567);
    slider.setFraction(1.5);
    EXPECT_DOUBLE_EQ(slider.fraction(), 1);
    slider.setFraction(-1);
    EXPECT_DOUBLE_EQ(slider.fraction(), 0);
    EXPECT_EQ(editing.count(), 0);
    EXPECT_EQ(moves.count(), 0);
    EXPECT_DEATH(slider.setFraction(std::numeric_limits<double>::quiet_NaN()), "is a number");
}

TEST_F(FractionSliderTest, ReportsOneGestureForADrag) {
    QTest::mousePress(&slider, Qt::LeftButton, {}, at(0.5));
    EXPECT_EQ(reports(), "+");
    EXPECT_EQ(moves.count(), 0);
    QTest::mouseMove(&slider, at(0.6));
    QTest::mouseMove(&slider, at(0.7));
    EXPECT_TRUE(slider.isEditing());
    EXPECT_NEAR(slider.fraction(), 0.7, 0.003);
    EXPECT_EQ(reports(), "+");
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, at(0.7));
    EXPECT_EQ(reports(), "+-");
    EXPECT_EQ(moves.count(), 2);
    EXPECT_FALSE(slider.isEditing());
}

TEST_F(FractionSliderTest, HoldsTheKnobWhereItWasTaken) {
    const QPoint offCentre = at(0.5) + QPoint(6, 0);
    QTest::mousePress(&slider, Qt::LeftButton, {}, offCentre);
    QTest::mouseMove(&slider, offCentre + QPoint(20, 0));
    EXPECT_NEAR(slider.fraction(), 0.6, 0.0001);
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, offCentre + QPoint(20, 0));
}

TEST_F(FractionSliderTest, JumpsToAClickAndMayBeDraggedOn) {
    QTest::mousePress(&slider, Qt::LeftButton, {}, at(0.2));
    EXPECT_NEAR(slider.fraction(), 0.2, 0.003);
    EXPECT_EQ(reports(), "+");
    QTest::mouseMove(&slider, at(0.3));
    EXPECT_NEAR(slider.fraction(), 0.3, 0.003);
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, at(0.3));
    EXPECT_EQ(reports(), "+-");
}

TEST_F(FractionSliderTest, StaysWithinItsEndsWhenDraggedBeyond) {
    QTest::mousePress(&slider, Qt::LeftButton, {}, at(0.5));
    QTest::mouseMove(&slider, QPoint(900, 13));
    EXPECT_DOUBLE_EQ(slider.fraction(), 1);
    QTest::mouseMove(&slider, QPoint(-900, 13));
    EXPECT_DOUBLE_EQ(slider.fraction(), 0);
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, QPoint(-900, 13));
}

TEST_F(FractionSliderTest, IgnoresOtherButtons) {
    QTest::mouseClick(&slider, Qt::RightButton, {}, at(0.9));
    EXPECT_EQ(reports(), "");
    QTest::mousePress(&slider, Qt::LeftButton, {}, at(0.5));
    QTest::mouseClick(&slider, Qt::RightButton, {}, at(0.5));
    EXPECT_EQ(reports(), "+");
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, at(0.5));
    EXPECT_EQ(reports(), "+-");
}

TEST_F(FractionSliderTest, MovesByEachOfItsKeys) {
    slider.setFocus();
    const std::pair<Qt::Key, double> steps[] = {
        {Qt::Key_Right, 0.51}, {Qt::Key_Left, 0.49},    {Qt::Key_Up, 0.51}, {Qt::Key_Down, 0.49},
        {Qt::Key_PageUp, 0.6}, {Qt::Key_PageDown, 0.4}, {Qt::Key_Home, 0},  {Qt::Key_End, 1},
    };
    for (const auto& [key, expected] : steps) {
        slider.setFraction(0.5);
        editing.clear();
        QTest::keyClick(&slider, key);
        EXPECT_NEAR(slider.fraction(), expected, 1e-9);
        EXPECT_EQ(reports(), "+-");
    }
}

TEST_F(FractionSliderTest, TakesAKeyWithItsRepeatsAsOneGesture) {
    slider.setFocus();
    QTest::keyPress(&slider, Qt::Key_Right);
    for (int repeat = 0; repeat < 3; ++repeat) {
        sendKey(QEvent::KeyRelease, Qt::Key_Right, true);
        sendKey(QEvent::KeyPress, Qt::Key_Right, true);
    }
    EXPECT_EQ(reports(), "+");
    QTest::keyRelease(&slider, Qt::Key_Right);
    EXPECT_EQ(reports(), "+-");
    EXPECT_NEAR(slider.fraction(), 0.54, 1e-9);
}

TEST_F(FractionSliderTest, WaitsForTheLastOfSeveralKeys) {
    slider.setFocus();
    QTest::keyPress(&slider, Qt::Key_Right);
    QTest::keyPress(&slider, Qt::Key_Up);
    QTest::keyRelease(&slider, Qt::Key_Right);
    EXPECT_EQ(reports(), "+");
    QTest::keyRelease(&slider, Qt::Key_Up);
    EXPECT_EQ(reports(), "+-");
}

TEST_F(FractionSliderTest, EndsTheGestureWhenItLosesTheFocusWithAKeyDown) {
    slider.setFocus();
    QTest::keyPress(&slider, Qt::Key_Right);
    slider.clearFocus();
    EXPECT_EQ(reports(), "+-");
    QTest::keyRelease(&slider, Qt::Key_Right);
    EXPECT_EQ(reports(), "+-");
}

TEST_F(FractionSliderTest, LeavesOtherKeysAndShortcutsToOthers) {
    slider.setFocus();
    QTest::keyClick(&slider, Qt::Key_A);
    QTest::keyClick(&slider, Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(reports(), "");
    EXPECT_DOUBLE_EQ(slider.fraction(), 0.5);
}

TEST_F(FractionSliderTest, TakesABurstOfTheWheelAsOneGesture) {
    slider.setFocus();
    slider.setWheelPause(std::chrono::milliseconds(0));
    turnWheel(120);
    turnWheel(120);
    turnWheel(-360);
    EXPECT_EQ(reports(), "+");
    EXPECT_NEAR(slider.fraction(), 0.49, 1e-9);
    QApplication::processEvents(QEventLoop::AllEvents, 50);
    EXPECT_EQ(reports(), "+-");
}

TEST_F(FractionSliderTest, LosesNoSmallTurnOfTheWheel) {
    slider.setFocus();
    for (int turn = 0; turn < 120; ++turn)
        turnWheel(1);
    EXPECT_NEAR(slider.fraction(), 0.51, 0.0001);
}

TEST_F(FractionSliderTest, LeavesTheWheelToThePaneWhileItHasNoFocus) {
    slider.clearFocus();
    turnWheel(120);
    EXPECT_EQ(reports(), "");
    EXPECT_DOUBLE_EQ(slider.fraction(), 0.5);
}

TEST_F(FractionSliderTest, EndsTheWheelsGestureBeforeTheNextOneBegins) {
    slider.setFocus();
    turnWheel(120);
    QTest::mousePress(&slider, Qt::LeftButton, {}, at(0.2));
    EXPECT_EQ(reports(), "+-+");
    turnWheel(120);
    QTest::keyClick(&slider, Qt::Key_Right);
    EXPECT_EQ(reports(), "+-+");
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, at(0.2));
    EXPECT_EQ(reports(), "+-+-");
}

TEST_F(FractionSliderTest, EndsItsGestureWhenItIsHiddenOrDisabled) {
    QTest::mousePress(&slider, Qt::LeftButton, {}, at(0.5));
    slider.setEnabled(false);
    EXPECT_EQ(reports(), "+-");
    QTest::mouseClick(&slider, Qt::LeftButton, {}, at(0.9));
    EXPECT_EQ(reports(), "+-");
    slider.setEnabled(true);
    QTest::mousePress(&slider, Qt::LeftButton, {}, at(0.5));
    slider.hide();
    EXPECT_EQ(reports(), "+-+-");
}

TEST_F(FractionSliderTest, MirrorsWhereTextRunsFromTheRight) {
    slider.setLayoutDirection(Qt::RightToLeft);
    slider.setFocus();
    QTest::keyClick(&slider, Qt::Key_Left);
    EXPECT_NEAR(slider.fraction(), 0.51, 1e-9);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, QPoint(4, 13));
    EXPECT_DOUBLE_EQ(slider.fraction(), 1);
    EXPECT_TRUE(isClose(pixel(slider, {100, 13}), QColor(26, 110, 240)));
}

TEST_F(FractionSliderTest, IsDrawnWhereItIsTakenHoldOf) {
    slider.setFraction(0.25);
    const QPoint knob = at(0.25);
    EXPECT_TRUE(isClose(pixel(slider, knob), Qt::white));
    EXPECT_TRUE(isClose(pixel(slider, at(0.05)), QColor(26, 110, 240)));
    const Colors colors = Colors::of(slider.palette());
    EXPECT_TRUE(isClose(pixel(slider, at(0.8)), onto(colors.window, colors.quaternary)));
}

TEST_F(FractionSliderTest, ShowsItsRingOnlyForTheKeyboardsFocus) {
    const QPoint ring = at(0.5) + QPoint(0, 11);
    slider.setFocus(Qt::MouseFocusReason);
    const QColor without = pixel(slider, ring);
    slider.clearFocus();
    slider.setFocus(Qt::TabFocusReason);
    const QColor with = pixel(slider, ring);
    EXPECT_GT(with.blue() - with.red(), without.blue() - without.red() + 30);
}
