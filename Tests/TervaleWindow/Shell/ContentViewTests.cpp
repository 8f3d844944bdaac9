#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Controls/FractionSlider.h"
#include "TervaleWindow/Controls/TabularLabel.h"
#include "TervaleWindow/Overview/OverviewView.h"
#include "TervaleWindow/Profiles/ProfilesView.h"
#include "TervaleWindow/Sensors/SensorsView.h"
#include "TervaleWindow/Shell/ContentView.h"
#include "TervaleWindow/Shell/Sidebar.h"
#include "TervaleWindow/Shell/SidebarSummary.h"
#include "TervaleWindow/Support/Contrast.h"
#include "TervaleWindow/Support/ModelFixture.h"

#include <QAccessible>
#include <QListWidget>
#include <QTest>

using namespace tervale;

class Content : public ModelFixture {
  protected:
    ContentView& show() {
        makeModel();
        view = std::make_unique<ContentView>(*model, bridge);
        view->resize(980, 680);
        view->show();
        return *view;
    }
    QListWidget& list() { return *view->findChild<QListWidget*>(); }
    /// The sidebar's figures that are on screen.
    QStringList summary() {
        QStringList rows;
        const auto* box = view->findChild<SidebarSummary*>();
        for (const auto* figure : box->findChildren<TabularLabel*>()) {
            if (figure->isVisibleTo(box))
                rows << figure->text();
        }
        return rows;
    }

    std::unique_ptr<ContentView> view;
};

TEST_F(Content, StartsWithTheOverview) {
    show();
    EXPECT_EQ(view->section(), Pane::overview);
    EXPECT_NE(qobject_cast<OverviewView*>(view->detail()), nullptr);
    EXPECT_EQ(list().currentRow(), 0);
}

TEST_F(Content, ShowsTheOverviewWithoutASelection) {
    show().setSection(Pane::profiles);
    view->setSection(std::nullopt);
    EXPECT_NE(qobject_cast<OverviewView*>(view->detail()), nullptr);
    EXPECT_EQ(list().currentRow(), -1);
}

/// Counts what is sent to objects of one class.
class Messages final : public QObject {
  public:
    explicit Messages(const char* className) : className(className) {
        qApp->installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent*) override {
        count += qstrcmp(watched->metaObject()->className(), className) == 0 ? 1 : 0;
        return false;
    }
    int count = 0;

  private:
    const char* className;
};

TEST_F(Content, MakesNoOtherPaneThanTheOneItBeginsWith) {
    makeModel();
    const Messages toOverview("tervale::OverviewView");
    ContentView begun(*model, bridge, Pane::sensors);
    EXPECT_EQ(begun.section(), Pane::sensors);
    EXPECT_NE(qobject_cast<SensorsView*>(begun.detail()), nullptr);
    EXPECT_EQ(toOverview.count, 0);
    begun.setSection(Pane::overview);
    EXPECT_GT(toOverview.count, 0);
}

TEST_F(Content, ListsThePanesInOrder) {
    show();
    QStringList titles;
    for (int row = 0; row < list().count(); ++row)
        titles << list().item(row)->text();
    EXPECT_EQ(titles, (QStringList{"Overview", "Sensors", "Profiles", "Settings"}));
}

TEST_F(Content, ShowsThePaneThatIsClicked) {
    show();
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {},
                      list().visualItemRect(list().item(2)).center());
    EXPECT_EQ(view->section(), Pane::profiles);
    EXPECT_NE(qobject_cast<ProfilesView*>(view->detail()), nullptr);
}

TEST_F(Content, ShowsThePaneThatAssistiveTechnologyChooses) {
    show();
    auto* rows = QAccessible::queryAccessibleInterface(&list());
    rows->child(2)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(view->section(), Pane::profiles);
    EXPECT_NE(qobject_cast<ProfilesView*>(view->detail()), nullptr);
}

TEST_F(Content, ShowsThePaneThatIsMarkedWhateverTheCurrentRow) {
    show();
    list().selectionModel()->select(list().model()->index(3, 0),
                                    QItemSelectionModel::ClearAndSelect);
    EXPECT_EQ(view->section(), Pane::settings);
}

TEST_F(Content, FollowsTheArrowKeys) {
    show();
    QTest::keyClick(&list(), Qt::Key_Down);
    EXPECT_EQ(view->section(), Pane::sensors);
    QTest::keyClick(&list(), Qt::Key_End);
    EXPECT_EQ(view->section(), Pane::settings);
}

TEST_F(Content, HasAKeyForEachPaneAndForClosing) {
    show().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
    QTest::keyClick(view.get(), Qt::Key_3, Qt::ControlModifier);
    EXPECT_EQ(view->section(), Pane::profiles);
    QTest::keyClick(view.get(), Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(view->section(), Pane::overview);
    QTest::keyClick(view.get(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(view->isVisible());
    view->show();
    view->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
    QTest::keyClick(view.get(), Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(view->isVisible());
}

TEST_F(Content, ShowsAPaneAtOnce) {
    show().setSection(Pane::profiles);
    EXPECT_TRUE(view->detail()->isVisible());
}

TEST_F(Content, MakesAPaneAnewWhenItIsShownAgain) {
    show();
    auto& slider = *view->findChild<FractionSlider*>();
    QTest::keyClick(&slider, Qt::Key_Up);
    ASSERT_GT(slider.fraction(), 0);
    view->setSection(Pane::profiles);
    view->setSection(Pane::overview);
    EXPECT_EQ(view->findChild<FractionSlider*>()->fraction(), 0);
}

TEST_F(Content, KeepsThePaneThatIsChosenAgain) {
    const QWidget* before = show().detail();
    view->setSection(Pane::overview);
    EXPECT_EQ(view->detail(), before);
}

TEST_F(Content, GivesTheSidebarItsWidth) {
    show();
    EXPECT_EQ(view->findChild<Sidebar*>()->QWidget::width(), 190);
    EXPECT_EQ(view->detail()->width(), 790);
}

TEST_F(Content, SumsUpOnlyTheFirstFanAndTheProcessor) {
    controller.setFan(0, 1234.9, 1300);
    controller.setFan(1, 3000, 3000);
    controller.set("Tp01", 58);
    show();
    EXPECT_EQ(summary(), (QStringList{"1234 rpm", "58 °C"}));
}

TEST_F(Content, LeavesOutOfTheSummaryWhatIsNotThere) {
    controller.setFan(0, 1200, 1200);
    controller.set("Tm02", 40);
    show();
    EXPECT_EQ(summary(), QStringList{"1200 rpm"});
    controller.remove("F0Ac");
    model->refresh();
    EXPECT_TRUE(summary().isEmpty());
    EXPECT_TRUE(view->findChild<SidebarSummary*>()->isVisible());
}

TEST_F(Content, KeepsTheGroundOfTheSummaryWithoutAController) {
    controller.absent = true;
    show();
    EXPECT_TRUE(summary().isEmpty());
    auto* box = view->findChild<SidebarSummary*>();
    ASSERT_TRUE(box->isVisible());
    const Colors colors = Colors::of(view->palette());
    const QColor ground = onto(colors.sidebar, colors.quaternary);
    const QPoint middle = box->mapTo(view.get(), box->rect().center());
    const QColor seen = view->grab().toImage().pixelColor(middle);
    EXPECT_NEAR(seen.red(), ground.red(), 1);
    EXPECT_NEAR(seen.green(), ground.green(), 1);
    EXPECT_NEAR(seen.blue(), ground.blue(), 1);
}

TEST_F(Content, SaysWhatTheFiguresOfTheSummaryAreOf) {
    controller.setFan(0, 1200, 1200);
    controller.set("Tp01", 50);
    show();
    model->refresh();
    QStringList spoken;
    QStringList tips;
    for (auto* figure : view->findChild<SidebarSummary*>()->findChildren<TabularLabel*>()) {
        spoken << QAccessible::queryAccessibleInterface(figure)->text(QAccessible::Name);
        tips << figure->parentWidget()->toolTip();
    }
    EXPECT_EQ(spoken, (QStringList{"Fan 1, 1200 rpm", "CPU, core average, 50 °C"}));
    EXPECT_EQ(tips, (QStringList{"Fan 1", "CPU, core average"}));
}

TEST_F(Content, UpdatesTheSummary) {
    controller.setFan(0, 1200, 1200);
    controller.set("Tp01", 50);
    show();
    controller.setFan(0, 2000, 2000);
    controller.set("Tp01", 70);
    model->refresh();
    EXPECT_EQ(summary(), (QStringList{"2000 rpm", "70 °C"}));
}
