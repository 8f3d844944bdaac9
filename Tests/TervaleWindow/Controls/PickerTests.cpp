#include "ControlsFixture.h"
#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Controls/PopUpButton.h"
#include "TervaleWindow/Controls/SegmentedPicker.h"

#include <QAbstractItemView>
#include <QBoxLayout>
#include <QRadioButton>
#include <QSignalSpy>
#include <QWheelEvent>

using namespace tervale;

namespace {

struct PickerTest : ControlsFixture {
    QWidget window;
    QVBoxLayout rows{&window};

    template <typename Control>
    Control& show(Control* control) {
        rows.addWidget(control, 0, Qt::AlignLeft);
        present(window);
        return *control;
    }

    static PopUpButton* popUp() {
        auto* button = new PopUpButton;
        button->addItems({"No profile", "Quiet", "Night"});
        return button;
    }
};

void turnWheel(QWidget& widget) {
    const QPointF place = widget.rect().center();
    QWheelEvent event(place, widget.mapToGlobal(place), {}, QPoint(0, -120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
}

} // namespace

TEST_F(PickerTest, APopUpIsAtLeastAsWideAsUsualAndGrowsWithItsNames) {
    PopUpButton& button = show(popUp());
    EXPECT_EQ(button.width(), PopUpButton::minimumContentWidth);
    EXPECT_EQ(button.height(), 26);
    button.addItem("A profile with a name that needs more room");
    EXPECT_GT(button.sizeHint().width(), PopUpButton::minimumContentWidth);
    button.setFixedWidth(100);
    QApplication::processEvents();
    // Nothing of the long name reaches the chevrons' square.
    button.setCurrentIndex(3);
    EXPECT_TRUE(isClose(pixel(button, {79, 6}), Theme::accent()));
    EXPECT_TRUE(isClose(pixel(button, {72, 13}), Colors::of(button.palette()).control));
}

TEST_F(PickerTest, APopUpReportsOnlyTheUsersChoice) {
    PopUpButton& button = show(popUp());
    QSignalSpy chosen(&button, &QComboBox::activated);
    button.setCurrentIndex(2);
    EXPECT_EQ(chosen.count(), 0);
    button.setFocus();
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Down, Qt::Key_Up, Qt::Key_Return}) {
        QTest::keyClick(&button, key);
        ASSERT_TRUE(button.view()->isVisible());
        button.view()->setCurrentIndex(button.model()->index(1, 0));
        QTest::keyClick(button.view(), Qt::Key_Return);
        EXPECT_FALSE(button.view()->isVisible());
    }
    EXPECT_EQ(chosen.count(), 4);
    EXPECT_EQ(button.currentIndex(), 1);
}

TEST_F(PickerTest, APopUpIsOpenedAndChosenFromBySpace) {
    PopUpButton& button = show(popUp());
    QSignalSpy chosen(&button, &QComboBox::activated);
    button.setFocus();
    QTest::keyClick(&button, Qt::Key_Space);
    ASSERT_TRUE(button.view()->isVisible());
    QTest::keyClick(button.view(), Qt::Key_Down);
    QTest::keyClick(button.view(), Qt::Key_Space);
    EXPECT_FALSE(button.view()->isVisible());
    ASSERT_EQ(chosen.size(), 1);
    EXPECT_EQ(button.currentText(), "Quiet");
}

TEST_F(PickerTest, APopUpLetsThePaneScrollOverIt) {
    PopUpButton& button = show(popUp());
    button.clearFocus();
    turnWheel(button);
    EXPECT_EQ(button.currentIndex(), 0);
    button.setFocus();
    turnWheel(button);
    EXPECT_EQ(button.currentIndex(), 1);
}

TEST_F(PickerTest, APopUpsLongListScrollsAndIsWideEnoughForItsNames) {
    PopUpButton& button = show(popUp());
    for (int extra = 0; extra < 30; ++extra)
        button.addItem(QString("A profile with a rather long name, number %1").arg(extra));
    button.setFixedWidth(130);
    button.showPopup();
    QWidget* list = button.view()->window();
    EXPECT_LE(list->height(), 12 * 24 + 20);
    EXPECT_GT(list->width(), 250);
    button.hidePopup();
}

TEST_F(PickerTest, APopUpMirrorsItself) {
    PopUpButton& button = show(popUp());
    button.setLayoutDirection(Qt::RightToLeft);
    EXPECT_TRUE(isClose(pixel(button, {9, 6}), Theme::accent()));
    EXPECT_TRUE(isClose(pixel(button, {109, 6}), Colors::of(button.palette()).control));
}

TEST_F(PickerTest, SegmentsAreChosenByMouseAndArrowKeys) {
    SegmentedPicker& picker = show(new SegmentedPicker({"Hottest sensor", "Core average"}));
    QSignalSpy chosen(&picker, &SegmentedPicker::chosen);
    QTest::mouseClick(picker.childAt(picker.width() - 10, 14), Qt::LeftButton);
    EXPECT_EQ(picker.selected(), 1);
    QTest::mouseClick(picker.childAt(picker.width() - 10, 14), Qt::LeftButton);
    EXPECT_EQ(chosen.count(), 1);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
    EXPECT_EQ(picker.selected(), 0);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    EXPECT_EQ(picker.selected(), 1);
    EXPECT_EQ(chosen.count(), 3);
    picker.setSelected(0);
    EXPECT_EQ(picker.selected(), 0);
    EXPECT_EQ(chosen.count(), 3);
}

TEST_F(PickerTest, TheSelectedSegmentStandsOutInLightAndDark) {
    SegmentedPicker& picker = show(new SegmentedPicker({"Hottest sensor", "Core average"}));
    EXPECT_EQ(picker.height(), 28);
    EXPECT_TRUE(isClose(pixel(picker, {8, 6}), Qt::white));
    wear(darkPalette());
    EXPECT_TRUE(isClose(pixel(picker, {8, 6}), QColor(0x63, 0x63, 0x68)));
}

TEST_F(PickerTest, ASegmentTakesANewTitle) {
    SegmentedPicker& picker = show(new SegmentedPicker({"Hottest sensor", "Core average"}));
    const int before = picker.sizeHint().width();
    picker.setTitle(1, "Average");
    EXPECT_EQ(picker.title(1), "Average");
    EXPECT_LT(picker.sizeHint().width(), before);
}
