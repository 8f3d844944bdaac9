#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Controls/PopUpButton.h"
#include "TervaleWindow/Controls/SegmentedPicker.h"
#include "TervaleWindow/Support/ControlsFixture.h"
#include "TervaleWindow/Support/Palettes.h"

#include <QAbstractItemView>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>

using namespace tervale;

namespace {

struct PickerTest : ControlsInWindow {
    static PopUpButton* popUp() {
        auto* button = new PopUpButton;
        button->addItems({"No profile", "Quiet", "Night"});
        return button;
    }
};

} // namespace

TEST_F(PickerTest, APopUpIsAtLeastAsWideAsUsualAndGrowsWithItsNames) {
    PopUpButton& button = show(popUp());
    EXPECT_EQ(button.width(), PopUpButton::minimumContentWidth);
    button.addItem("A profile with a name that needs more room");
    EXPECT_GT(button.sizeHint().width(),
              button.fontMetrics().horizontalAdvance(button.itemText(3)));
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
        QTest::keyClick(button.view(), Qt::Key_Home);
        QTest::keyClick(button.view(), Qt::Key_Down);
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

TEST_F(PickerTest, APopUpLeavesTheWheelToThePaneThatScrolls) {
    QScrollArea pane;
    auto* inside = new QWidget;
    inside->setFixedSize(200, 2000);
    PopUpButton* button = popUp();
    button->setParent(inside);
    pane.setWidget(inside);
    pane.resize(220, 200);
    present(pane);
    QSignalSpy chosen(button, &QComboBox::activated);
    button->setFocus();
    turnWheel(*button, -120);
    EXPECT_GT(pane.verticalScrollBar()->value(), 0);
    EXPECT_EQ(button->currentIndex(), 0);
    EXPECT_EQ(chosen.count(), 0);
}

TEST_F(PickerTest, ALetterOpensAPopUpAtTheEntryThatBeginsWithIt) {
    PopUpButton& button = show(popUp());
    QSignalSpy chosen(&button, &QComboBox::activated);
    button.setFocus();
    QTest::keyClick(&button, Qt::Key_Q);
    ASSERT_TRUE(button.view()->isVisible());
    EXPECT_EQ(chosen.count(), 0);
    EXPECT_EQ(button.currentText(), "No profile");
    QTest::keyClick(button.view(), Qt::Key_Return);
    EXPECT_EQ(button.currentText(), "Quiet");
    EXPECT_EQ(chosen.count(), 1);
}

TEST_F(PickerTest, NoKeyChoosesFromAClosedPopUp) {
    PopUpButton& button = show(popUp());
    QSignalSpy chosen(&button, &QComboBox::activated);
    button.setFocus();
    for (const Qt::Key key : {Qt::Key_End, Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_Home})
        QTest::keyClick(&button, key);
    for (const auto modifier : {Qt::ShiftModifier, Qt::ControlModifier, Qt::MetaModifier}) {
        QTest::keyClick(&button, Qt::Key_Down, modifier);
        QTest::keyClick(&button, Qt::Key_Up, modifier);
    }
    for (const auto modifier : {Qt::AltModifier, Qt::ControlModifier, Qt::MetaModifier})
        QTest::keyClick(&button, Qt::Key_Q, modifier);
    EXPECT_FALSE(button.view()->isVisible());
    EXPECT_EQ(button.currentIndex(), 0);
    EXPECT_EQ(chosen.count(), 0);
}

TEST_F(PickerTest, TheUsualKeysOpenAPopUp) {
    PopUpButton& button = show(popUp());
    const auto opens = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        button.setFocus();
        QTest::keyClick(&button, key, modifiers);
        const bool open = button.view()->isVisible();
        button.hidePopup();
        return open;
    };
    for (const Qt::Key key :
         {Qt::Key_Space, Qt::Key_Up, Qt::Key_Down, Qt::Key_Return, Qt::Key_Enter, Qt::Key_F4})
        EXPECT_TRUE(opens(key)) << key;
    EXPECT_TRUE(opens(Qt::Key_Down, Qt::AltModifier));
    EXPECT_EQ(button.currentIndex(), 0);
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
    const QPoint first(8, 6);
    const QPoint second(picker.width() - 8, 6);
    for (const QPalette& palette : {lightLook(), darkLook()}) {
        wear(palette);
        EXPECT_FALSE(isClose(pixel(picker, first), pixel(picker, second), 20));
        EXPECT_FALSE(isClose(pixel(picker, first), palette.color(QPalette::WindowText), 100));
    }
}

TEST_F(PickerTest, TheSelectedSegmentStandsOutThreefoldInHighContrast) {
    SegmentedPicker& picker = show(new SegmentedPicker({"Hottest sensor", "Core average"}));
    const QPoint first(8, 6);
    const QPoint second(picker.width() - 8, 6);
    for (const NamedPalette& each : everyPalette()) {
        if (!each.highContrast)
            continue;
        wear(each.palette);
        EXPECT_GE(contrast(pixel(picker, second), pixel(picker, first)), 3) << each.name;
    }
}

// Else it is as pale as it is designed.
TEST_F(PickerTest, TheSelectedSegmentHasTheColorsOfTheDesign) {
    SegmentedPicker& picker = show(new SegmentedPicker({"Hottest sensor", "Core average"}));
    wear(paletteOf(Look::own, Scheme::light));
    EXPECT_TRUE(isClose(pixel(picker, {8, 6}), QColor(0xff, 0xff, 0xff), 1));
    wear(paletteOf(Look::own, Scheme::dark));
    EXPECT_TRUE(isClose(pixel(picker, {8, 6}), QColor(0x63, 0x63, 0x68), 2));
}

TEST_F(PickerTest, ASegmentTakesANewTitle) {
    SegmentedPicker& picker = show(new SegmentedPicker({"Hottest sensor", "Core average"}));
    const int before = picker.sizeHint().width();
    picker.setTitle(1, "Average");
    EXPECT_EQ(picker.title(1), "Average");
    EXPECT_LT(picker.sizeHint().width(), before);
}
