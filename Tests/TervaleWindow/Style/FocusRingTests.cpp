#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Controls/FractionSlider.h"
#include "TervaleWindow/Controls/ModeButton.h"
#include "TervaleWindow/Style/FocusRing.h"
#include "TervaleWindow/Style/ListRowPainting.h"
#include "TervaleWindow/Support/ControlsFixture.h"

#include <QLineEdit>
#include <QPushButton>
#include <QStyleFactory>

using namespace tervale;

namespace {

QPalette plainPalette(const QColor& ground, const QColor& text) {
    QPalette palette(text, ground, ground, ground, ground, text, ground);
    palette.setColor(QPalette::Window, ground);
    return palette;
}

struct FocusRingTest : ControlsInWindow {
    /// Between the outer edge of a control and that of its ring.
    QColor ringColor(const QWidget& control) {
        return pixel(window, control.geometry().topLeft() + QPoint(control.width() / 2, -2));
    }
};

/// The ring of a row of a list that the keyboard reached, where the row is selected or not.
QColor ringOfRow(const QPalette& palette, QStyle::State more) {
    QImage image(60, 30, QImage::Format_RGB32);
    image.fill(palette.color(QPalette::Window));
    QPainter painter(&image);
    QStyleOptionViewItem row;
    row.palette = palette;
    row.state = QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange | more;
    paintListRowGround(painter, image.rect(), row);
    painter.end();
    return image.pixelColor(30, 2);
}

} // namespace

TEST_F(FocusRingTest, IsLeftByTheKeyboardOnly) {
    QPushButton& first = show(new QPushButton("Revert"));
    QPushButton& second = show(new QPushButton("Save"));
    first.setFocus(Qt::MouseFocusReason);
    QApplication::processEvents();
    EXPECT_EQ(visibleRing(), nullptr);
    QTest::keyClick(&window, Qt::Key_Tab);
    QApplication::processEvents();
    ASSERT_TRUE(second.hasFocus());
    ASSERT_NE(visibleRing(), nullptr);
    EXPECT_EQ(visibleRing()->widget(), &second);
    EXPECT_FALSE(isClose(ringColor(second), lightLook().color(QPalette::Window)));
    QTest::mouseClick(&first, Qt::LeftButton);
    EXPECT_EQ(visibleRing(), nullptr);
}

TEST_F(FocusRingTest, IsAroundAFieldHoweverItGotTheFocus) {
    QLineEdit& field = show(new QLineEdit("Night"));
    field.clearFocus();
    QTest::mouseClick(&field, Qt::LeftButton);
    field.setFocus(Qt::MouseFocusReason);
    ASSERT_NE(visibleRing(), nullptr);
    const QRect ring = visibleRing()->geometry();
    EXPECT_EQ(ring.center(), field.geometry().center());
    EXPECT_EQ(ring.width(), field.width() + 2 * focusRingWidth);
    EXPECT_EQ(ring.height(), field.height() + 2 * focusRingWidth);
}

TEST_F(FocusRingTest, SurroundsTheWindowsOwnControlsInAnyStyle) {
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    ModeButton& button = show(new ModeButton("50%"));
    button.clearFocus();
    button.setFocus(Qt::TabFocusReason);
    QApplication::processEvents();
    ASSERT_NE(visibleRing(), nullptr);
    EXPECT_EQ(visibleRing()->widget(), &button);
    EXPECT_TRUE(visibleRing()->geometry().contains(button.geometry()));
    EXPECT_FALSE(isClose(ringColor(button), window.palette().color(QPalette::Window)));
    tervale::wear(lookUnderTest());
}

TEST_F(FocusRingTest, IsAroundTheKnobOfASliderThatTheKeyboardReached) {
    FractionSlider& slider = show(new FractionSlider);
    slider.setFraction(0.5);
    const QPoint besideKnob(slider.width() / 2, slider.height() - 2);
    slider.setFocus(Qt::MouseFocusReason);
    const QColor without = pixel(slider, besideKnob);
    slider.clearFocus();
    slider.setFocus(Qt::TabFocusReason);
    const QColor with = pixel(slider, besideKnob);
    EXPECT_GT(with.blue() - with.red(), without.blue() - without.red() + 30);
}

TEST_F(FocusRingTest, IsSolidInHighContrastOnEveryGround) {
    show(new QPushButton("Revert")).setFocus(Qt::MouseFocusReason);
    QPushButton& button = show(new QPushButton("Save"));
    QApplication::processEvents();
    QTest::keyClick(&window, Qt::Key_Tab);
    ASSERT_TRUE(button.hasFocus());
    for (const auto& [ground, text] : {std::pair(Qt::white, Qt::black), {Qt::black, Qt::white}}) {
        const QPalette palette = plainPalette(ground, text);
        EXPECT_TRUE(isClose(ringOfRow(palette, {}), Theme::accent(), 1));
        EXPECT_TRUE(isClose(ringOfRow(palette, QStyle::State_Selected), Qt::white, 1));
        wear(palette);
        EXPECT_TRUE(isClose(ringColor(button), Theme::accent(), 1));
    }
}
