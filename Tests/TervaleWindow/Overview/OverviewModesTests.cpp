#include "TervaleWindow/Overview/OverviewFixture.h"
#include "TervaleWindow/Support/InLocale.h"

#include <QApplication>

namespace tervale {
namespace {

class OverviewModes : public OverviewFixture {
  protected:
    std::vector<QString> selectedModes() const {
        std::vector<QString> titles;
        for (const auto* button : view->findChildren<ModeButton*>()) {
            if (button->isSelected())
                titles.push_back(button->text());
        }
        return titles;
    }
};

TEST_F(OverviewModes, SendsOneCommandForEachModeButton) {
    show();
    for (const QString& title :
         {QString("Automatic"), QString("25%"), QString("50%"), QString("75%"), QString("Max")})
        QTest::mouseClick(&mode(title), Qt::LeftButton);
    const std::vector<BridgeCommand> expected{
        command::Select{action::Automatic{}}, command::Select{action::Fixed{0.25}},
        command::Select{action::Fixed{0.5}}, command::Select{action::Fixed{0.75}},
        command::Select{action::Fixed{1.0}}};
    EXPECT_EQ(takeCommands(), expected);
}

TEST_F(OverviewModes, ShowsAModeAsSelectedOnlyWhenTheAgentConfirmsIt) {
    show();
    EXPECT_EQ(selectedModes(), std::vector<QString>{"Automatic"});
    QTest::mouseClick(&mode("50%"), Qt::LeftButton);
    EXPECT_EQ(selectedModes(), std::vector<QString>{"Automatic"});
    BridgeState state;
    state.selection = action::Fixed{0.5};
    publish(state);
    EXPECT_EQ(selectedModes(), std::vector<QString>{"50%"});
    EXPECT_EQ(slider().fraction(), 0.5);
    state.timerAction = action::Automatic{};
    publish(state);
    EXPECT_TRUE(selectedModes().empty());
}

TEST_F(OverviewModes, ReachesAModeButtonByTheKeyboard) {
    show();
    mode("75%").setFocus(Qt::TabFocusReason);
    QTest::keyClick(&mode("75%"), Qt::Key_Space);
    EXPECT_EQ(takeCommands(), std::vector<BridgeCommand>{command::Select{action::Fixed{0.75}}});
}

TEST_F(OverviewModes, GoesAlongTheModesByTheArrowsAndStopsAtTheirEnd) {
    const InLocale leftToRight(QLocale::c());
    show();
    view->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
    publish({});
    auto* last = named<ModeButton>("Max");
    last->setFocus(Qt::TabFocusReason);
    for (int press = 0; press < 3; ++press)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    EXPECT_TRUE(last->hasFocus());
    QTest::keyClick(last, Qt::Key_Down);
    EXPECT_TRUE(last->hasFocus());
    for (int press = 0; press < 9; ++press)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
    EXPECT_TRUE(named<ModeButton>("Automatic")->hasFocus());
    EXPECT_TRUE(takeCommands().empty());
}

TEST_F(OverviewModes, AreOneStopOfTheTabKeyAsRadioButtonsAre) {
    const InLocale leftToRight(QLocale::c());
    show();
    view->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
    BridgeState state;
    state.selection = action::Fixed{0.5};
    publish(state);
    const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
    // Back from what comes next, to the one that is selected.
    slider().setFocus(Qt::TabFocusReason);
    press(Qt::Key_Backtab);
    EXPECT_TRUE(mode("50%").hasFocus());
    press(Qt::Key_Left);
    ASSERT_TRUE(mode("25%").hasFocus());
    press(Qt::Key_Tab);
    EXPECT_TRUE(slider().hasFocus());
    press(Qt::Key_Backtab);
    EXPECT_TRUE(mode("50%").hasFocus());
    // None is selected while a timer runs.
    state.timerAction = action::Automatic{};
    publish(state);
    EXPECT_TRUE(mode("50%").hasFocus());
    press(Qt::Key_Tab);
    ASSERT_TRUE(slider().hasFocus());
    press(Qt::Key_Backtab);
    EXPECT_TRUE(mode("Automatic").hasFocus());
    EXPECT_TRUE(takeCommands().empty());
}

TEST_F(OverviewModes, SaysWhatALitButtonMeans) {
    show();
    BridgeState state;
    state.selection = action::Fixed{0.5};
    publish(state);
    for (const auto* button : view->findChildren<ModeButton*>()) {
        const QString meaning = button->isSelected() ? "Chosen now" : "";
        EXPECT_EQ(button->toolTip(), meaning) << button->text().toStdString();
        EXPECT_EQ(button->accessibleDescription(), meaning);
    }
    EXPECT_EQ(mode("50%").toolTip(), "Chosen now");
}

TEST_F(OverviewModes, LetsTheAgentsStatusExplainWhileThereIsOne) {
    show();
    BridgeState state;
    state.status = "The fans do not answer.";
    publish(state);
    EXPECT_TRUE(shows("The fans do not answer."));
    publish({});
    EXPECT_TRUE(shows("macOS decides the fan speed."));
}

TEST_F(OverviewModes, WaitsForTheAgentWithEverythingUsable) {
    show();
    EXPECT_TRUE(shows("Waiting for Tervale in the menu bar…"));
    QTest::mouseClick(&mode("Max"), Qt::LeftButton);
    EXPECT_EQ(takeCommands().size(), 1U);
    publish({});
    EXPECT_FALSE(shows("Waiting for Tervale in the menu bar…"));
}

} // namespace
} // namespace tervale
