#include "TervaleWindow/Accessibility/AccessibleFactory.h"
#include "TervaleWindow/Controls/Divider.h"
#include "TervaleWindow/Controls/FractionSlider.h"
#include "TervaleWindow/Controls/MenuButton.h"
#include "TervaleWindow/Controls/ModeButton.h"
#include "TervaleWindow/Controls/PopUpButton.h"
#include "TervaleWindow/Gauges/FanDial.h"
#include "TervaleWindow/Gauges/ThermalBar.h"
#include "TervaleWindow/Overview/FanChoices.h"
#include "TervaleWindow/Overview/FansPanel.h"
#include "TervaleWindow/Overview/ModeHeading.h"
#include "TervaleWindow/Overview/OverviewView.h"
#include "TervaleWindow/Overview/TimerLabel.h"
#include "TervaleWindow/Style/WindowStyle.h"
#include "TervaleWindow/Support/Choosing.h"
#include "TervaleWindow/Support/ModelFixture.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

using namespace tervale;

namespace {

constexpr UUID quietId{{7}};
constexpr UUID loudId{{8}};

std::vector<Profile> twoProfiles() {
    return {{quietId, "Quiet", kind::Load{}}, {loudId, "Loud & clear", kind::Load{}}};
}

/// The line on a running timer; empty while none runs.
QString timerText(const Model& model) {
    const auto line = timerLine(model);
    return line ? line->text() : QString();
}

} // namespace

class Overview : public ModelFixture {
  protected:
    void SetUp() override {
        installAccessibleFactory();
        controller.setFan(0, 2893, 3100, 1200, 5777, 1);
        controller.setFan(1, 2911, 3100, 1300, 6241);
        controller.set("Tp01", 45);
        controller.set("Tp05", 71);
        controller.set("Tm02", 47);
    }

    OverviewView& show() {
        if (!model)
            makeModel();
        takeCommands();
        view = std::make_unique<OverviewView>(*model, bridge);
        view->resize(790, 1200);
        view->show();
        return *view;
    }

    template <class Widget>
    Widget* named(const QString& text) {
        for (auto* widget : view->findChildren<Widget*>()) {
            if (widget->isVisibleTo(view.get()) &&
                (widget->accessibleName() == text || widget->property("text").toString() == text))
                return widget;
        }
        return nullptr;
    }
    ModeButton& mode(const QString& title) { return *named<ModeButton>(title); }
    FractionSlider& slider() { return *view->findChild<FractionSlider*>(); }
    PopUpButton* picker() { return named<PopUpButton>("Profile"); }
    MenuButton* timerMenu() { return named<MenuButton>("Timer"); }
    bool shows(const QString& text) { return named<QLabel>(text) != nullptr; }

    std::vector<QString> selectedModes() {
        std::vector<QString> titles;
        for (const auto* button : view->findChildren<ModeButton*>()) {
            if (button->isSelected())
                titles.push_back(button->text());
        }
        return titles;
    }

    std::unique_ptr<OverviewView> view;
};

TEST_F(Overview, SendsOneCommandForEachModeButton) {
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

TEST_F(Overview, ShowsAModeAsSelectedOnlyWhenTheAgentConfirmsIt) {
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

TEST_F(Overview, ReachesAModeButtonByTheKeyboard) {
    show();
    mode("75%").setFocus(Qt::TabFocusReason);
    QTest::keyClick(&mode("75%"), Qt::Key_Space);
    EXPECT_EQ(takeCommands(), std::vector<BridgeCommand>{command::Select{action::Fixed{0.75}}});
}

TEST_F(Overview, SendsOneCommandWhenTheSliderIsReleased) {
    show();
    const QPoint middle = slider().rect().center();
    QTest::mousePress(&slider(), Qt::LeftButton, {}, middle);
    for (int step = 1; step <= 20; ++step)
        QTest::mouseMove(&slider(), middle + QPoint(3 * step, 0));
    EXPECT_TRUE(takeCommands().empty());
    QTest::mouseRelease(&slider(), Qt::LeftButton, {}, middle + QPoint(60, 0));
    const auto commands = takeCommands();
    ASSERT_EQ(commands.size(), 1U);
    EXPECT_EQ(commands.front(), BridgeCommand(command::Select{fixedAt(slider().fraction())}));
    EXPECT_GT(slider().fraction(), 0.5);
}

TEST_F(Overview, RoundsWhatTheSliderIsReleasedAt) {
    show();
    for (const auto& [released, sent] : {std::pair(0.4567, 0.46), {0.005, 0.01}, {1.0, 1.0}}) {
        slider().moveAtOnce(released);
        EXPECT_EQ(takeCommands(), std::vector<BridgeCommand>{command::Select{action::Fixed{sent}}});
    }
    BridgeState state;
    state.selection = action::Fixed{1.0};
    publish(state);
    EXPECT_EQ(view->findChild<ModeHeading*>()->findChild<QLabel*>()->text(), "Max");
}

TEST_F(Overview, SendsNothingWhenTheWindowClosesInTheMiddleOfAGesture) {
    show();
    slider().setFocus(Qt::TabFocusReason);
    QTest::keyPress(&slider(), Qt::Key_Right);
    view->close();
    EXPECT_TRUE(takeCommands().empty());
}

TEST_F(Overview, KeepsOneMenuForEachTargetOfTheTimer) {
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

TEST_F(Overview, LetsTheAgentsStatusExplainWhileThereIsOne) {
    show();
    BridgeState state;
    state.status = "The fans do not answer.";
    publish(state);
    EXPECT_TRUE(shows("The fans do not answer."));
    publish({});
    EXPECT_TRUE(shows("macOS decides the fan speed."));
}

TEST_F(Overview, SendsOneCommandForAKeyOfTheSlider) {
    show();
    BridgeState state;
    state.selection = action::Fixed{0.5};
    publish(state);
    slider().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&slider(), Qt::Key_Right);
    EXPECT_EQ(takeCommands(), std::vector<BridgeCommand>{command::Select{action::Fixed{0.51}}});
}

TEST_F(Overview, LeavesTheSliderAloneWhileItIsDragged) {
    show();
    const QPoint middle = slider().rect().center();
    QTest::mousePress(&slider(), Qt::LeftButton, {}, middle);
    const double held = slider().fraction();
    BridgeState state;
    state.selection = action::Fixed{0.9};
    publish(state);
    EXPECT_EQ(slider().fraction(), held);
    QTest::mouseRelease(&slider(), Qt::LeftButton, {}, middle);
    EXPECT_EQ(takeCommands().size(), 1U);
}

TEST_F(Overview, LeavesTheSliderWhereItIsForOtherSelections) {
    show();
    BridgeState state;
    state.selection = action::Fixed{0.7};
    publish(state);
    EXPECT_TRUE(shows("70%"));
    state.selection = action::Automatic{};
    publish(state);
    EXPECT_EQ(slider().fraction(), 0.7);
}

TEST_F(Overview, SetsTheSliderWhenItIsShownAnew) {
    makeModel();
    BridgeState state;
    state.selection = action::Fixed{0.3};
    publish(state);
    show();
    EXPECT_EQ(slider().fraction(), 0.3);
    state.selection = action::Automatic{};
    publish(state);
    show();
    EXPECT_EQ(slider().fraction(), 0.0);
}

TEST_F(Overview, HasNoPickerWithoutProfiles) {
    show();
    EXPECT_EQ(picker(), nullptr);
    BridgeState state;
    state.profiles = twoProfiles();
    publish(state);
    ASSERT_NE(picker(), nullptr);
    QStringList entries;
    for (int i = 0; i < picker()->count(); ++i)
        entries << picker()->itemText(i);
    EXPECT_EQ(entries, (QStringList{"No profile", "Quiet", "Loud & clear"}));
}

TEST_F(Overview, SelectsAProfileAndShowsItOnceConfirmed) {
    show();
    BridgeState state;
    state.profiles = twoProfiles();
    publish(state);
    choose(*picker(), 2);
    EXPECT_EQ(takeCommands(), std::vector<BridgeCommand>{command::Select{action::Profile{loudId}}});
    EXPECT_EQ(picker()->currentText(), "No profile");
    state.selection = action::Profile{loudId};
    publish(state);
    EXPECT_EQ(picker()->currentText(), "Loud & clear");
    EXPECT_TRUE(shows("Following the profile."));
}

TEST_F(Overview, SendsNothingForNoProfile) {
    show();
    BridgeState state;
    state.profiles = twoProfiles();
    state.selection = action::Profile{quietId};
    publish(state);
    choose(*picker(), 0);
    EXPECT_TRUE(takeCommands().empty());
    EXPECT_EQ(picker()->currentText(), "Quiet");
}

TEST_F(Overview, ShowsAMissingProfile) {
    show();
    BridgeState state;
    state.profiles = twoProfiles();
    state.selection = action::Profile{};
    publish(state);
    EXPECT_TRUE(shows("Missing profile"));
    EXPECT_EQ(picker()->currentText(), "No profile");
}

TEST_F(Overview, StartsATimerFromItsMenu) {
    show();
    BridgeState state;
    state.profiles = twoProfiles();
    publish(state);
    const QMenu& menu = *timerMenu()->menu();
    ASSERT_EQ(menu.actions().size(), 7);
    EXPECT_EQ(menu.actions().at(6)->text(), "Loud && clear");
    const auto durations = menu.actions().at(1)->menu()->actions();
    ASSERT_EQ(durations.size(), 4);
    durations.at(1)->trigger();
    menu.actions().at(5)->menu()->actions().at(3)->trigger();
    const std::vector<BridgeCommand> expected{command::StartTimer{action::Fixed{0.5}, 1800},
                                              command::StartTimer{action::Profile{quietId}, 7200}};
    EXPECT_EQ(takeCommands(), expected);
}

TEST_F(Overview, ShowsARunningTimerAndCancelsIt) {
    show();
    BridgeState state;
    state.timerAction = action::Fixed{0.5};
    state.timerEnds = Date{0};
    publish(state);
    EXPECT_EQ(timerMenu(), nullptr);
    EXPECT_TRUE(shows("50%"));
    EXPECT_TRUE(shows("Fixed speed, held until you change it."));
    EXPECT_TRUE(timerText(*model).endsWith("then Automatic"));
    EXPECT_TRUE(shows(timerText(*model)));
    state.selection = action::Profile{quietId};
    state.profiles = twoProfiles();
    publish(state);
    EXPECT_TRUE(timerText(*model).endsWith("then Quiet"));
    EXPECT_TRUE(shows(timerText(*model)));
    state.profiles.front().name = "Silent";
    publish(state);
    EXPECT_TRUE(timerText(*model).endsWith("then Silent"));
    EXPECT_TRUE(shows(timerText(*model)));
    auto* cancel = named<QPushButton>("Cancel");
    ASSERT_NE(cancel, nullptr);
    QTest::mouseClick(cancel, Qt::LeftButton);
    EXPECT_EQ(takeCommands(), std::vector<BridgeCommand>{command::CancelTimer{}});
    publish({});
    EXPECT_NE(timerMenu(), nullptr);
    EXPECT_EQ(named<QPushButton>("Cancel"), nullptr);
}

TEST_F(Overview, KeepsTheFocusWhereTheTimerIsStartedAndCancelled) {
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

TEST_F(Overview, GoesAlongTheModesByTheArrowsAndStopsAtTheirEnd) {
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

TEST_F(Overview, WaitsForTheAgentWithEverythingUsable) {
    show();
    EXPECT_TRUE(shows("Waiting for Tervale in the menu bar…"));
    QTest::mouseClick(&mode("Max"), Qt::LeftButton);
    EXPECT_EQ(takeCommands().size(), 1U);
    publish({});
    EXPECT_FALSE(shows("Waiting for Tervale in the menu bar…"));
}

TEST_F(Overview, NumbersItsFansOnlyWhenThereAreSeveral) {
    show();
    EXPECT_TRUE(shows("Fan 1"));
    EXPECT_TRUE(shows("Fan 2"));
    controller.setFanCount(1);
    model->refresh();
    EXPECT_FALSE(shows("Fan 1"));
    EXPECT_EQ(view->findChildren<FanDial*>().size(), 1);
}

TEST_F(Overview, HasNoDialsWithoutAController) {
    controller.absent = true;
    show();
    EXPECT_TRUE(view->findChildren<FanDial*>().isEmpty());
    EXPECT_FALSE(view->findChild<FansPanel*>()->isVisible());
    QTest::mouseClick(&mode("50%"), Qt::LeftButton);
    EXPECT_EQ(takeCommands().size(), 1U);
}

TEST_F(Overview, DrawsACardForFansOnceThereAreSome) {
    controller.setFanCount(0);
    show();
    const auto* panel = view->findChild<FansPanel*>();
    EXPECT_FALSE(panel->isVisible());
    controller.setFanCount(2);
    model->refresh();
    EXPECT_TRUE(panel->isVisible());
}

TEST_F(Overview, LeavesAirBetweenADialAndItsCaption) {
    show();
    const auto* caption = named<QLabel>("Fan 1");
    ASSERT_NE(caption, nullptr);
    const QImage column = caption->parentWidget()->grab().toImage();
    const QRgb ground = column.pixel(0, 0);
    const auto isEmpty = [&](int y) {
        for (int x = caption->geometry().left(); x < caption->geometry().right(); ++x) {
            if (column.pixel(x, y) != ground)
                return false;
        }
        return true;
    };
    int y = caption->geometry().center().y();
    while (!isEmpty(y))
        --y;
    int air = 0;
    for (; isEmpty(y); --y)
        ++air;
    EXPECT_GE(air, 8);
    EXPECT_LE(air, 10);
}

TEST_F(Overview, DrawsAHairlineUnderItsHeaderOnceContentIsBelowIt) {
    show();
    view->resize(590, 520);
    QApplication::processEvents();
    const auto* edge = view->findChild<Divider*>(QString(), Qt::FindDirectChildrenOnly);
    ASSERT_NE(edge, nullptr);
    auto* bar = view->findChild<QScrollArea*>()->verticalScrollBar();
    EXPECT_FALSE(edge->isVisible());
    bar->setFocus();
    QTest::keyClick(bar, Qt::Key_Down);
    ASSERT_GT(bar->value(), 0);
    EXPECT_TRUE(edge->isVisible());
    EXPECT_EQ(edge->geometry().bottom() + 1, PaneFrame::headerHeight);
    EXPECT_EQ(edge->width(), view->width());
    QTest::keyClick(bar, Qt::Key_Home);
    EXPECT_FALSE(edge->isVisible());
}

TEST_F(Overview, ShowsTheAverageAndTheHottestOfTheProcessorAndOneFigureOfOthers) {
    show();
    EXPECT_TRUE(shows("CPU"));
    EXPECT_TRUE(shows("58 °C"));
    EXPECT_TRUE(shows("hottest core 71 °C"));
    EXPECT_TRUE(shows("Memory"));
    EXPECT_TRUE(shows("47 °C"));
    EXPECT_FALSE(shows("GPU"));
    EXPECT_FALSE(shows("Other"));
    EXPECT_TRUE(shows("20 °C"));
    EXPECT_TRUE(shows("100 °C"));
}

TEST_F(Overview, NamesItsGaugesAndTheirValues) {
    show();
    const auto valueOf = [](QWidget* gauge) {
        return QAccessible::queryAccessibleInterface(gauge)->text(QAccessible::Value);
    };
    auto* dial = named<FanDial>("Fan 1");
    ASSERT_NE(dial, nullptr);
    EXPECT_EQ(valueOf(dial), "2893 rpm");
    auto* bar = named<ThermalBar>("CPU");
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(valueOf(bar), "58 °C");
}

TEST_F(Overview, GivesEveryControlAName) {
    show();
    BridgeState state;
    state.profiles = twoProfiles();
    publish(state);
    for (auto* widget : view->findChildren<QWidget*>()) {
        if (widget->focusPolicy() == Qt::NoFocus || !widget->isVisibleTo(view.get()))
            continue;
        const auto* accessible = QAccessible::queryAccessibleInterface(widget);
        EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty())
            << widget->metaObject()->className();
    }
}

TEST_F(Overview, FitsTheSmallestWindowWithoutClipping) {
    show();
    BridgeState state;
    state.profiles = {{quietId, std::string(200, 'W'), kind::Load{}}};
    state.selection = action::Profile{quietId};
    state.status = std::string(300, 'x') + " " + std::string(100, 'y');
    state.timerAction = state.selection;
    state.timerEnds = Date{0};
    publish(state);
    view->resize(590, 520);
    QApplication::processEvents();
    for (auto* widget : view->findChildren<QWidget*>()) {
        if (!widget->isVisibleTo(view.get()) || widget->isWindow())
            continue;
        const int right = widget->mapTo(view.get(), QPoint(widget->width(), 0)).x();
        EXPECT_LE(right, 590) << widget->metaObject()->className();
    }
}

TEST_F(Overview, ReadsANamelessProfileAndOneOfTwoLinesTheSameEverywhere) {
    for (const auto& [name, read] :
         {std::pair("", "Untitled"), {"Quiet\nand cool", "Quiet and cool"}}) {
        show();
        BridgeState state;
        state.profiles = {{quietId, name, kind::Load{}}};
        state.selection = action::Profile{quietId};
        publish(state);
        EXPECT_EQ(view->findChild<ModeHeading*>()->findChild<QLabel*>()->text(), read);
        EXPECT_EQ(picker()->currentText(), read);
        EXPECT_EQ(timerMenu()->menu()->actions().back()->text(), read);
        state.timerAction = state.selection;
        state.timerEnds = Date{0};
        publish(state);
        EXPECT_TRUE(timerText(*model).startsWith(QString(read) + " until "));
        EXPECT_TRUE(timerText(*model).endsWith(QString("then ") + read));
    }
}

TEST_F(Overview, KeepsTheTimersEndInSightWhereTheNamesAreLong) {
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
    EXPECT_TRUE(line->toolTip().contains(timerText(*model)));
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
    EXPECT_EQ(line->text(), timerText(*model));
    EXPECT_EQ(line->toolTip(), QString());
}

TEST_F(Overview, ShowsOfAnEndlessStatusWhatFits) {
    show();
    BridgeState state;
    // Together as long as a state may be.
    state.status = std::string(100'000, 'x');
    state.profiles = {{quietId, std::string(100'000, 'W'), kind::Load{}}};
    state.selection = action::Profile{quietId};
    state.timerAction = state.selection;
    state.timerEnds = Date{0};
    publish(state);
    for (const int width : {790, 590, 790}) {
        view->resize(width, 1200);
        QApplication::processEvents();
        view->grab();
    }
    EXPECT_EQ(subtitle(*model).size(), longestStatus);
    EXPECT_TRUE(shows(subtitle(*model)));
}
