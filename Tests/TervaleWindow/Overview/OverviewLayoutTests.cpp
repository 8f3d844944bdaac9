#include "TervaleWindow/Controls/Divider.h"
#include "TervaleWindow/Model/DisplayName.h"
#include "TervaleWindow/Overview/FanChoices.h"
#include "TervaleWindow/Overview/OverviewFixture.h"

#include <QAccessible>
#include <QApplication>
#include <QScrollArea>
#include <QScrollBar>

namespace tervale {
namespace {

class OverviewLayout : public OverviewFixture {};

TEST_F(OverviewLayout, DrawsAHairlineUnderItsHeaderOnceContentIsBelowIt) {
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

TEST_F(OverviewLayout, GivesEveryControlAName) {
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

TEST_F(OverviewLayout, FitsTheSmallestWindowWithoutClipping) {
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

TEST_F(OverviewLayout, ShowsOfAnEndlessStatusWhatFits) {
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

} // namespace
} // namespace tervale
