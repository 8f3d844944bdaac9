#include "TervaleWindow/Controls/FractionSlider.h"
#include "TervaleWindow/Profiles/ScheduleEditor.h"
#include "TervaleWindow/Support/InLocale.h"
#include "TervaleWindow/Support/Look.h"

#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QTest>

#include <gtest/gtest.h>

#include <cmath>

namespace tervale {
namespace {

/// A schedule of one window with a fixed speed, whose edits come back as whole percents.
class ScheduleSpeed : public testing::Test {
  protected:
    ScheduleSpeed() {
        QObject::connect(&editor, &ScheduleEditor::edited, &editor, [this](const WindowEdit& edit) {
            std::vector<Window> windows = editor.windows();
            perform(edit, windows);
            editor.display(windows, {});
            ++edits;
        });
        editor.display({{0, 60, action::Fixed{0.2}}}, {});
        slider = editor.findChild<FractionSlider*>();
        editor.resize(600, 300);
        editor.show();
        editor.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&editor));
    }

    double stored() const { return std::get<action::Fixed>(editor.windows()[0].action).speed; }

    const InLocale leftToRight{QLocale::c()};
    ScheduleEditor editor;
    FractionSlider* slider;
    int edits = 0;
};

TEST_F(ScheduleSpeed, CountsEachOfSixtyTurnsOfAKey) {
    slider->setFocus();
    for (int turn = 1; turn <= 60; ++turn) {
        QTest::keyClick(slider, Qt::Key_Right);
        EXPECT_DOUBLE_EQ(stored(), (20 + turn) / 100.0);
    }
    for (int turn = 1; turn <= 60; ++turn)
        QTest::keyClick(slider, Qt::Key_Left);
    EXPECT_DOUBLE_EQ(stored(), 0.2);
    EXPECT_EQ(edits, 120);
}

TEST_F(ScheduleSpeed, CountsTheRepeatsOfAKeyThatIsHeldDown) {
    slider->setFocus();
    QTest::keyPress(slider, Qt::Key_Right);
    for (int repeat = 1; repeat < 60; ++repeat) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier, QString(), true);
        QApplication::sendEvent(slider, &event);
    }
    QTest::keyRelease(slider, Qt::Key_Right);
    EXPECT_DOUBLE_EQ(stored(), 0.8);
}

TEST_F(ScheduleSpeed, AddsUpSixtyMovesOfLessThanAPercent) {
    // Here a pixel is worth some eight of the slider's ten thousand steps.
    slider->setFixedWidth(1280);
    QCoreApplication::processEvents();
    const QPoint start(500, slider->height() / 2);
    QTest::mouseMove(slider, start);
    QTest::mousePress(slider, Qt::LeftButton, {}, start);
    const double from = slider->fraction();
    double last = from;
    for (int move = 1; move <= 60; ++move) {
        QTest::mouseMove(slider, start + QPoint(move, 0));
        EXPECT_GT(slider->fraction(), last) << move;
        EXPECT_LT(slider->fraction() - last, 0.002) << move;
        last = slider->fraction();
        EXPECT_DOUBLE_EQ(stored(), std::round(last * 100) / 100);
    }
    QTest::mouseRelease(slider, Qt::LeftButton, {}, start + QPoint(60, 0));
    EXPECT_NEAR(last - from, 60.0 / (1280 - 20), 0.002);
    EXPECT_DOUBLE_EQ(stored(), std::round(last * 100) / 100);
}

TEST_F(ScheduleSpeed, IsChosenOnATrackOfItsUsualLength) {
    if (lookUnderTest() != Look::own)
        GTEST_SKIP() << "draws tracks of its own";
    QTest::keyClick(slider, Qt::Key_PageUp);
    const QImage image = editor.grab().toImage();
    const QRect place(slider->mapTo(&editor, QPoint()), slider->size());
    const int y = place.center().y();
    const QColor ground = image.pixelColor(place.left() - 1, y);
    int first = place.left();
    while (image.pixelColor(first, y) == ground && first < place.right())
        ++first;
    int last = place.right();
    while (image.pixelColor(last, y) == ground && last > first)
        --last;
    EXPECT_NEAR(last - first + 1, 96, 1);
}

} // namespace
} // namespace tervale
