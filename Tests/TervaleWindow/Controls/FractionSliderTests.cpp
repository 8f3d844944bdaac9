#include "TervaleWindow/Controls/FractionSlider.h"
#include "TervaleWindow/Support/ControlsFixture.h"
#include "TervaleWindow/Support/Knob.h"

#include <QProxyStyle>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>

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
        slider.setGeometry(20, 10, 226, slider.sizeHint().height());
        present(window);
        slider.setFraction(0.5);
    }

    QPoint at(double fraction) const { return knobAt(slider, fraction); }
    /// What a pixel is worth.
    double pixelStep() const { return 1.0 / (at(1).x() - at(0).x()); }

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
    EXPECT_NEAR(slider.fraction(), 0.7, pixelStep());
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
    EXPECT_NEAR(slider.fraction(), 0.5 + 20 * pixelStep(), pixelStep());
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, offCentre + QPoint(20, 0));
}

TEST_F(FractionSliderTest, IsNotMovedByAMerePressOnItsKnob) {
    slider.setFixedWidth(80);
    for (const double fraction : {0.07, 0.4567, 0.98}) {
        slider.setFraction(fraction);
        QTest::mouseClick(&slider, Qt::LeftButton, {}, at(fraction) + QPoint(3, 0));
        EXPECT_DOUBLE_EQ(slider.fraction(), fraction);
    }
    EXPECT_EQ(moves.count(), 0);
    EXPECT_EQ(reports(), "+-+-+-");
}

/// A style that brings the knob to wherever the pointer is pressed, as a Mac's does.
class JumpingStyle : public QProxyStyle {
  public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override {
        return hint == SH_Slider_AbsoluteSetButtons
                   ? int(Qt::LeftButton)
                   : QProxyStyle::styleHint(hint, option, widget, result);
    }
};

TEST_F(FractionSliderTest, HoldsTheKnobWhereItWasTakenInAStyleThatWouldCentreIt) {
    JumpingStyle style;
    slider.setStyle(&style);
    const QPoint offCentre = at(0.5) + QPoint(5, 0);
    QTest::mousePress(&slider, Qt::LeftButton, {}, offCentre);
    EXPECT_DOUBLE_EQ(slider.fraction(), 0.5);
    QTest::mouseMove(&slider, offCentre + QPoint(20, 0));
    EXPECT_NEAR(slider.fraction(), 0.5 + 20 * pixelStep(), pixelStep());
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, offCentre + QPoint(20, 0));
    QTest::mouseClick(&slider, Qt::LeftButton, {}, at(0.2));
    EXPECT_NEAR(slider.fraction(), 0.2, pixelStep());
    EXPECT_EQ(reports(), "+-+-");
    slider.setStyle(nullptr);
}

TEST_F(FractionSliderTest, JumpsToAClickAndMayBeDraggedOn) {
    QTest::mousePress(&slider, Qt::LeftButton, {}, at(0.2));
    EXPECT_NEAR(slider.fraction(), 0.2, pixelStep());
    EXPECT_EQ(reports(), "+");
    QTest::mouseMove(&slider, at(0.3));
    EXPECT_NEAR(slider.fraction(), 0.3, pixelStep());
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

TEST_F(FractionSliderTest, LeavesTheWheelToThePaneThatScrolls) {
    QScrollArea pane;
    auto* inside = new QWidget;
    inside->setFixedSize(200, 2000);
    slider.setParent(inside);
    slider.move(0, 0);
    pane.setWidget(inside);
    pane.resize(220, 200);
    present(pane);
    slider.setFocus();
    turnWheel(slider, -120);
    EXPECT_GT(pane.verticalScrollBar()->value(), 0);
    EXPECT_DOUBLE_EQ(slider.fraction(), 0.5);
    EXPECT_EQ(reports(), "");
    slider.setParent(&window);
}

TEST_F(FractionSliderTest, TakesWhatKeysDoDuringADragIntoItsGesture) {
    slider.setFocus();
    QTest::mousePress(&slider, Qt::LeftButton, {}, at(0.5));
    QTest::keyClick(&slider, Qt::Key_Right);
    EXPECT_EQ(reports(), "+");
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, at(0.5));
    EXPECT_EQ(reports(), "+-");
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
    QTest::mouseClick(&slider, Qt::LeftButton, {}, QPoint(4, slider.height() / 2));
    EXPECT_DOUBLE_EQ(slider.fraction(), 1);
}
