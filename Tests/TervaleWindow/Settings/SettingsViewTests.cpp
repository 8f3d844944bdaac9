#include "TervaleWindow/Accessibility/AccessibleFactory.h"
#include "TervaleWindow/Controls/ToggleSwitch.h"
#include "TervaleWindow/Settings/SettingsView.h"
#include "TervaleWindow/Support/ModelFixture.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace tervale;

namespace {

struct SomeMetadata final : ApplicationMetadata {
    std::optional<Value> value(const std::string& key) const override {
        return key == "CFBundleVersion" ? "34" : "1.2";
    }
};

const QString safetyText =
    "If any CPU or GPU sensor reaches 95 °C, the fan goes to Max whatever the "
    "profile says, until every sensor is back below 85 °C. Quitting Tervale "
    "hands the fan back to macOS.";

} // namespace

class Settings : public ModelFixture {
  protected:
    void SetUp() override { installAccessibleFactory(); }

    void show(int width = 790) {
        makeModel();
        takeCommands();
        view = std::make_unique<SettingsView>(*model, bridge, SomeMetadata());
        view->resize(width, 628);
        view->show();
    }
    void answer(bool launchAtLogin) {
        BridgeState state;
        state.launchAtLogin = launchAtLogin;
        publish(state);
    }
    ToggleSwitch& toggle() { return *view->findChild<ToggleSwitch*>(); }
    QPushButton& updateButton() { return *view->findChild<QPushButton*>(); }
    QLabel* label(const QString& text) {
        for (auto* candidate : view->findChildren<QLabel*>()) {
            if (candidate->text() == text && candidate->isVisible())
                return candidate;
        }
        return nullptr;
    }

    std::unique_ptr<SettingsView> view;
};

TEST_F(Settings, ShowsItsTexts) {
    show();
    for (const QString text :
         {"Settings", "Launch at login",
          "Starts Tervale in the menu bar when you log in, with the last profile running.",
          "Version", "1.2 (34)", "Safety"})
        EXPECT_TRUE(label(text)) << text.toStdString();
    EXPECT_TRUE(label(safetyText));
    EXPECT_EQ(updateButton().text(), "Check for Updates…");
}

TEST_F(Settings, PutsTheSectionsInOrder) {
    show();
    int last = -1;
    for (const QString text : {"Settings", "Launch at login", "Version", "Safety"}) {
        const int top = label(text)->mapTo(view.get(), QPoint()).y();
        EXPECT_GT(top, last) << text.toStdString();
        last = top;
    }
}

TEST_F(Settings, CannotToggleBeforeAnAgentHasAnswered) {
    show();
    EXPECT_FALSE(toggle().isEnabled());
    EXPECT_FALSE(toggle().isChecked());
    QTest::mouseClick(&toggle(), Qt::LeftButton);
    QTest::keyClick(&toggle(), Qt::Key_Space);
    EXPECT_TRUE(takeCommands().empty());
}

TEST_F(Settings, EnablesTheToggleOnceTheAgentAnswers) {
    show();
    answer(true);
    EXPECT_TRUE(toggle().isEnabled());
    EXPECT_TRUE(toggle().isChecked());
}

TEST_F(Settings, OpensWithWhatTheAgentHadConfirmedBefore) {
    makeModel();
    answer(true);
    view = std::make_unique<SettingsView>(*model, bridge, SomeMetadata());
    EXPECT_TRUE(toggle().isEnabled());
    EXPECT_TRUE(toggle().isChecked());
}

TEST_F(Settings, SendsOneCommandForEachChangeAndShowsTheAgentsAnswer) {
    show();
    answer(false);
    QTest::mouseClick(&toggle(), Qt::LeftButton);
    EXPECT_EQ(takeCommands(), std::vector<BridgeCommand>{command::SetLaunchAtLogin{true}});
    EXPECT_FALSE(toggle().isChecked());
    answer(true);
    EXPECT_TRUE(toggle().isChecked());
    EXPECT_TRUE(takeCommands().empty());
    toggle().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&toggle(), Qt::Key_Space);
    EXPECT_EQ(takeCommands(), std::vector<BridgeCommand>{command::SetLaunchAtLogin{false}});
    EXPECT_TRUE(toggle().isChecked());
    answer(false);
    EXPECT_FALSE(toggle().isChecked());
    EXPECT_TRUE(takeCommands().empty());
}

TEST_F(Settings, KeepsShowingWhatTheAgentDeclinesToChange) {
    show();
    answer(true);
    QTest::mouseClick(&toggle(), Qt::LeftButton);
    answer(true);
    EXPECT_TRUE(toggle().isChecked());
    EXPECT_EQ(takeCommands(), std::vector<BridgeCommand>{command::SetLaunchAtLogin{false}});
}

TEST_F(Settings, AsksForUpdatesEvenWithoutAnAgent) {
    show();
    EXPECT_TRUE(updateButton().isEnabled());
    QTest::mouseClick(&updateButton(), Qt::LeftButton);
    EXPECT_EQ(takeCommands(), std::vector<BridgeCommand>{command::CheckForUpdates{}});
    updateButton().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&updateButton(), Qt::Key_Space);
    EXPECT_EQ(takeCommands(), std::vector<BridgeCommand>{command::CheckForUpdates{}});
    EXPECT_FALSE(toggle().isEnabled());
}

TEST_F(Settings, WrapsItsLongTextsInANarrowWindow) {
    show(790);
    const int wide = label(safetyText)->height();
    view->resize(420, 628);
    QApplication::processEvents();
    const QLabel& safety = *label(safetyText);
    EXPECT_GT(safety.height(), wide);
    EXPECT_GE(safety.height(), safety.heightForWidth(safety.width()));
    EXPECT_LE(safety.mapTo(view.get(), safety.rect().bottomRight()).x(), 420 - PaneFrame::margin);
}

TEST_F(Settings, ReadsTheToggleToAssistiveTechnology) {
    show();
    answer(true);
    auto* accessible = QAccessible::queryAccessibleInterface(&toggle());
    ASSERT_TRUE(accessible);
    EXPECT_EQ(accessible->role(), QAccessible::CheckBox);
    EXPECT_EQ(accessible->text(QAccessible::Name), "Launch at login");
    EXPECT_TRUE(accessible->state().checked);
    accessible->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(takeCommands(), std::vector<BridgeCommand>{command::SetLaunchAtLogin{false}});
}
