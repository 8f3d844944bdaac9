#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Controls/MenuButton.h"
#include "TervaleWindow/Controls/ModeButton.h"
#include "TervaleWindow/Controls/SymbolButton.h"
#include "TervaleWindow/Controls/ToggleSwitch.h"
#include "TervaleWindow/Support/ControlsFixture.h"

#include <QMenu>
#include <QSignalSpy>
#include <QTimer>

using namespace tervale;

namespace {

struct ButtonTest : ControlsInWindow {};

} // namespace

TEST_F(ButtonTest, AModeIsSelectedOnlyFromOutside) {
    ModeButton& button = show(new ModeButton("50%"));
    QSignalSpy clicks(&button, &QAbstractButton::clicked);
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(clicks.count(), 2);
    EXPECT_FALSE(button.isSelected());
    button.setSelected(Selection::selected);
    EXPECT_TRUE(button.isSelected());
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_TRUE(button.isSelected());
}

TEST_F(ButtonTest, AModeIsFilledWithTheAccentWhileItIsSelected) {
    ModeButton& button = show(new ModeButton("50%"));
    const QPoint probe(8, 15);
    for (const QPalette& palette : {lightLook(), darkLook()}) {
        wear(palette);
        const Colors colors = Colors::of(palette);
        button.setSelected(Selection::unselected);
        EXPECT_TRUE(isClose(pixel(button, probe), onto(colors.window, colors.quaternary)));
        button.setSelected(Selection::selected);
        EXPECT_TRUE(isClose(pixel(button, probe), Theme::accent()));
    }
}

TEST_F(ButtonTest, ADisabledModeIsFadedAndCannotBeClicked) {
    ModeButton& button = show(new ModeButton("50%"));
    button.setSelected(Selection::selected);
    button.setEnabled(false);
    QSignalSpy clicks(&button, &QAbstractButton::clicked);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(clicks.count(), 0);
    QColor faded = Theme::accent();
    faded.setAlphaF(0.45f);
    EXPECT_TRUE(isClose(pixel(button, {8, 15}), onto(lightLook().color(QPalette::Window), faded)));
}

TEST_F(ButtonTest, ASwitchAsksAndShowsTheAnswer) {
    ToggleSwitch& toggle = show(new ToggleSwitch("Launch at login"));
    EXPECT_EQ(toggle.size(), QSize(38, 22));
    QSignalSpy requests(&toggle, &ToggleSwitch::requested);
    QTest::mouseClick(&toggle, Qt::LeftButton);
    EXPECT_FALSE(toggle.isChecked());
    QTest::keyClick(&toggle, Qt::Key_Space);
    ASSERT_EQ(requests.count(), 2);
    EXPECT_TRUE(requests.at(0).at(0).toBool());
    toggle.setChecked(true);
    EXPECT_EQ(requests.count(), 2);
    QTest::mouseClick(&toggle, Qt::LeftButton);
    EXPECT_FALSE(requests.at(2).at(0).toBool());
    EXPECT_TRUE(toggle.isChecked());
}

TEST_F(ButtonTest, ASwitchSlidesItsKnob) {
    ToggleSwitch toggle("Launch at login");
    EXPECT_TRUE(isClose(pixel(toggle, {10, 11}), Qt::white));
    toggle.setChecked(true); // not on screen, so at once
    EXPECT_TRUE(isClose(pixel(toggle, {28, 11}), Qt::white));
    EXPECT_TRUE(isClose(pixel(toggle, {8, 11}), Theme::accent()));
    toggle.setLayoutDirection(Qt::RightToLeft);
    EXPECT_TRUE(isClose(pixel(toggle, {10, 11}), Qt::white));
}

TEST_F(ButtonTest, ASymbolHasANameATipAndAClick) {
    SymbolButton& button = show(new SymbolButton(Symbol::minus, "Remove"));
    EXPECT_EQ(button.toolTip(), "Remove");
    EXPECT_EQ(accessible(button)->text(QAccessible::Name), "Remove");
    EXPECT_EQ(accessible(button)->role(), QAccessible::Button);
    QSignalSpy clicks(&button, &QAbstractButton::clicked);
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(clicks.count(), 2);
}

TEST_F(ButtonTest, AMenuButtonOpensItsMenuByMouseAndKeyboard) {
    auto* menu = new QMenu;
    QAction* chosen = menu->addAction("15 minutes");
    QSignalSpy triggered(chosen, &QAction::triggered);
    MenuButton& button = show(new MenuButton("Timer", menu));
    EXPECT_GE(button.width(), MenuButton::leastWidth);
    EXPECT_EQ(accessible(button)->role(), QAccessible::ButtonMenu);
    int opened = 0;
    QObject::connect(menu, &QMenu::aboutToShow, &button, [&] {
        ++opened;
        // The menu runs a loop of its own.
        QTimer::singleShot(0, menu, [menu] {
            menu->setActiveAction(menu->actions().first());
            QTest::keyClick(menu, Qt::Key_Return);
        });
    });
    QTest::mousePress(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Space);
    QTest::keyClick(&button, Qt::Key_Down);
    EXPECT_EQ(opened, 3);
    EXPECT_EQ(triggered.count(), 3);
}
