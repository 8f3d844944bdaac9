#include "TervaleWindow/Overview/OverviewFixture.h"
#include "TervaleWindow/Support/InLocale.h"

#include <QAccessible>

#include <cmath>

namespace tervale {
namespace {

class OverviewSlider : public OverviewFixture {};

TEST_F(OverviewSlider, SendsOneCommandWhenTheSliderIsReleased) {
    const InLocale leftToRight(QLocale::c());
    show();
    const QPoint middle = slider().rect().center();
    QTest::mousePress(&slider(), Qt::LeftButton, {}, middle);
    for (int step = 1; step <= 20; ++step)
        QTest::mouseMove(&slider(), middle + QPoint(3 * step, 0));
    EXPECT_TRUE(takeCommands().empty());
    QTest::mouseRelease(&slider(), Qt::LeftButton, {}, middle + QPoint(60, 0));
    const auto commands = takeCommands();
    ASSERT_EQ(commands.size(), 1U);
    EXPECT_EQ(commands.front(), BridgeCommand(command::Select{
                                    action::Fixed{std::round(slider().fraction() * 100) / 100}}));
    EXPECT_GT(slider().fraction(), 0.5);
}

TEST_F(OverviewSlider, RoundsWhatTheSliderIsReleasedAt) {
    show();
    auto* accessible = QAccessible::queryAccessibleInterface(&slider());
    for (const auto& [released, sent] : {std::pair(45.67, 0.46), {0.5, 0.01}, {100.0, 1.0}}) {
        // As assistive technology moves it, in percent.
        accessible->valueInterface()->setCurrentValue(released);
        EXPECT_EQ(takeCommands(), std::vector<BridgeCommand>{command::Select{action::Fixed{sent}}});
    }
    BridgeState state;
    state.selection = action::Fixed{1.0};
    publish(state);
    EXPECT_EQ(heading(), "Max");
}

TEST_F(OverviewSlider, SendsNothingWhenTheWindowClosesInTheMiddleOfAGesture) {
    show();
    slider().setFocus(Qt::TabFocusReason);
    QTest::keyPress(&slider(), Qt::Key_Right);
    view->close();
    EXPECT_TRUE(takeCommands().empty());
}

TEST_F(OverviewSlider, SendsOneCommandForAKeyOfTheSlider) {
    const InLocale leftToRight(QLocale::c());
    show();
    BridgeState state;
    state.selection = action::Fixed{0.5};
    publish(state);
    slider().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&slider(), Qt::Key_Right);
    EXPECT_EQ(takeCommands(), std::vector<BridgeCommand>{command::Select{action::Fixed{0.51}}});
}

TEST_F(OverviewSlider, LeavesTheSliderAloneWhileItIsDragged) {
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

TEST_F(OverviewSlider, LeavesTheSliderWhereItIsForOtherSelections) {
    show();
    BridgeState state;
    state.selection = action::Fixed{0.7};
    publish(state);
    EXPECT_TRUE(shows("70%"));
    state.selection = action::Automatic{};
    publish(state);
    EXPECT_EQ(slider().fraction(), 0.7);
}

TEST_F(OverviewSlider, SetsTheSliderWhenItIsShownAnew) {
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

} // namespace
} // namespace tervale
