#include "TervaleWindow/Overview/FanChoices.h"
#include "TervaleWindow/Overview/OverviewFixture.h"
#include "TervaleWindow/Overview/TimerLabel.h"
#include "TervaleWindow/Support/Choosing.h"

#include <QApplication>
#include <QMenu>

namespace tervale {
namespace {

class OverviewTimer : public OverviewFixture {};

TEST_F(OverviewTimer, KeepsOneMenuForEachTargetOfTheTimer) {
    show();
    BridgeState state;
    for (const char* name : {"One", "Two", "Three"}) {
        state.profiles.push_back({UUID{{9}}, name, kind::Load{}});
        publish(state);
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(static_cast<std::size_t>(timerMenu()->menu()->findChildren<QMenu*>().size()),
              timerTargets(*model).size());
}

TEST_F(OverviewTimer, StartsATimerFromItsMenu) {
    show();
    BridgeState state;
    state.profiles = twoProfiles();
    publish(state);
    QMenu& menu = *timerMenu()->menu();
    ASSERT_EQ(menu.actions().size(), 7);
    EXPECT_EQ(menu.actions().at(6)->text(), "Loud && clear");
    ASSERT_EQ(menu.actions().at(1)->menu()->actions().size(), 4);
    choose(menu, {"50%", "30 minutes"});
    choose(menu, {"Quiet", "2 hours"});
    const std::vector<BridgeCommand> expected{command::StartTimer{action::Fixed{0.5}, 1800},
                                              command::StartTimer{action::Profile{quietId}, 7200}};
    EXPECT_EQ(takeCommands(), expected);
}

TEST_F(OverviewTimer, ShowsARunningTimerAndCancelsIt) {
    show();
    BridgeState state;
    state.timerAction = action::Fixed{0.5};
    state.timerEnds = Date{0};
    publish(state);
    EXPECT_EQ(timerMenu(), nullptr);
    EXPECT_TRUE(shows("50%"));
    EXPECT_TRUE(shows("Fixed speed, held until you change it."));
    EXPECT_TRUE(timerText().endsWith("then Automatic"));
    EXPECT_TRUE(shows(timerText()));
    state.selection = action::Profile{quietId};
    state.profiles = twoProfiles();
    publish(state);
    EXPECT_TRUE(timerText().endsWith("then Quiet"));
    EXPECT_TRUE(shows(timerText()));
    state.profiles.front().name = "Silent";
    publish(state);
    EXPECT_TRUE(timerText().endsWith("then Silent"));
    EXPECT_TRUE(shows(timerText()));
    auto* cancel = named<QPushButton>("Cancel");
    ASSERT_NE(cancel, nullptr);
    QTest::mouseClick(cancel, Qt::LeftButton);
    EXPECT_EQ(takeCommands(), std::vector<BridgeCommand>{command::CancelTimer{}});
    publish({});
    EXPECT_NE(timerMenu(), nullptr);
    EXPECT_EQ(named<QPushButton>("Cancel"), nullptr);
}

TEST_F(OverviewTimer, KeepsTheFocusWhereTheTimerIsStartedAndCancelled) {
    show();
    view->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
    publish({});
    timerMenu()->setFocus(Qt::TabFocusReason);
    BridgeState running;
    running.timerAction = action::Fixed{0.5};
    running.timerEnds = Date{0};
    publish(running);
    auto* cancel = named<QPushButton>("Cancel");
    ASSERT_NE(cancel, nullptr);
    EXPECT_TRUE(cancel->hasFocus());
    publish({});
    EXPECT_TRUE(timerMenu()->hasFocus());
}

TEST_F(OverviewTimer, KeepsTheTimersEndInSightWhereTheNamesAreLong) {
    show();
    BridgeState state;
    state.profiles = {{quietId, std::string(60, 'W'), kind::Load{}},
                      {loudId, "Loud", kind::Load{}}};
    state.timerAction = action::Profile{quietId};
    state.timerEnds = Date{0};
    state.selection = action::Profile{loudId};
    publish(state);
    view->resize(590, 1200);
    QApplication::processEvents();
    const auto* line = view->findChild<TimerLabel*>();
    const QString until = " until " + timerLine(*model)->until + ", then ";
    EXPECT_TRUE(line->text().contains("…" + until + "Loud")) << line->text().toStdString();
    EXPECT_TRUE(line->text().startsWith("WW"));
    const auto* text = line->findChild<QLabel*>();
    EXPECT_LE(text->fontMetrics().horizontalAdvance(text->text()), text->width());
    EXPECT_TRUE(line->toolTip().contains(timerText()));
    // Two long names give way alike.
    state.profiles[1].name = std::string(60, 'M');
    publish(state);
    QApplication::processEvents();
    EXPECT_TRUE(line->text().contains("W…" + until + "M")) << line->text().toStdString();
    EXPECT_TRUE(line->text().endsWith("M…"));
    EXPECT_LE(text->fontMetrics().horizontalAdvance(text->text()), text->width());
    state.profiles = twoProfiles();
    publish(state);
    QApplication::processEvents();
    EXPECT_EQ(line->text(), timerText());
    EXPECT_EQ(line->toolTip(), QString());
}

} // namespace
} // namespace tervale
