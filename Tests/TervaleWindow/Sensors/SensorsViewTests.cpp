#include "TervaleWindow/Controls/SearchField.h"
#include "TervaleWindow/Controls/WindowStyle.h"
#include "TervaleWindow/Sensors/SensorList.h"
#include "TervaleWindow/Sensors/SensorSectionCard.h"
#include "TervaleWindow/Sensors/SensorsView.h"
#include "TervaleWindow/Support/ModelFixture.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

using namespace tervale;

class Sensors : public ModelFixture {
  protected:
    void SetUp() override { QApplication::setStyle(new WindowStyle); }

    void useUsualSensors() {
        for (const auto& [key, value] :
             std::initializer_list<std::pair<const char*, double>>{{"Tp01", 57},
                                                                   {"Tp05", 61},
                                                                   {"Te05", 50},
                                                                   {"Tg05", 48},
                                                                   {"Tg0D", 60},
                                                                   {"TH0x", 39}})
            controller.set(key, value);
    }
    /// Two sensors that no summary reads, so that only the list's own reads touch them.
    void useOtherSensors() {
        controller.set("TW0P", 41);
        controller.set("TaLP", 32);
    }
    void useSensors(int count) {
        for (int number = 0; number < count; ++number)
            controller.set(QString("Tp%1").arg(number, 2, 36, QChar('0')).toStdString(), 50);
    }

    void show() {
        if (!model)
            makeModel();
        if (!view)
            view = std::make_unique<SensorsView>(*model);
        view->resize(790, 628);
        view->show();
        view->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
    }

    SearchField& search() { return *view->findChild<SearchField*>(); }
    SensorList& list() { return *view->findChild<SensorList*>(); }
    QScrollBar& scrollBar() { return *view->findChild<QScrollArea*>()->verticalScrollBar(); }
    void type(const QString& text) {
        search().setFocus();
        QTest::keyClicks(&search(), text);
    }
    std::vector<SensorSectionCard*> cards() {
        std::vector<SensorSectionCard*> shown;
        for (auto* card : view->findChildren<SensorSectionCard*>()) {
            if (card->isVisible())
                shown.push_back(card);
        }
        return shown;
    }
    /// Title, count and rows of every section on screen.
    QStringList lines() {
        QStringList all;
        for (const auto* card : cards()) {
            all << card->section().title() + ": " + card->section().count();
            for (const SensorRow& row : card->section().rows)
                all << row.name + QString(" %1").arg(row.value);
        }
        return all;
    }
    bool shows(const QString& text) {
        for (const auto* label : view->findChildren<QLabel*>()) {
            if (label->text() == text && label->isVisible())
                return true;
        }
        return false;
    }
    int callsOf(int polls) {
        const int before = controller.calls;
        for (int poll = 0; poll < polls; ++poll)
            model->refresh();
        return controller.calls - before;
    }

    std::unique_ptr<SensorsView> view;
};

TEST_F(Sensors, HasATitleAndASubtitle) {
    show();
    EXPECT_TRUE(shows("Sensors"));
    EXPECT_TRUE(shows("Refreshed every 5 seconds"));
    EXPECT_EQ(search().placeholderText(), "Filter sensors");
}

TEST_F(Sensors, ListsAllSensorsByGroupAsSoonAsItIsShown) {
    useUsualSensors();
    show();
    EXPECT_EQ(lines(), QStringList({"CPU: 3 sensors", "CPU Te05 50", "CPU Tp01 57", "CPU Tp05 61",
                                    "GPU: 2 sensors", "GPU Tg05 48", "GPU Tg0D 60",
                                    "SSD: 1 sensors", "SSD 39"}));
}

TEST_F(Sensors, ReadsEverySensorOnceOnShowing) {
    useOtherSensors();
    makeModel();
    view = std::make_unique<SensorsView>(*model);
    const int before = controller.calls;
    EXPECT_TRUE(lines().empty());
    view->show();
    EXPECT_EQ(controller.calls - before, 2);
}

TEST_F(Sensors, TakesTheFirstReadingHoweverSmallItsChangeIs) {
    useOtherSensors();
    makeModel();
    model->readAllSensors();
    controller.set("TW0P", 41.5);
    show();
    EXPECT_EQ(lines(), QStringList({"Other: 2 sensors", "Wi-Fi 41.5", "Other TaLP 32"}));
}

TEST_F(Sensors, ReadsAllSensorsOnEveryFifthPollWhileShown) {
    useOtherSensors();
    makeModel();
    const int withoutSensors = callsOf(1);
    show();
    // The next poll is the third.
    EXPECT_EQ(callsOf(3), 3 * withoutSensors);
    controller.set("TW0P", 60);
    EXPECT_EQ(callsOf(1), withoutSensors + 2);
    EXPECT_TRUE(lines().contains("Wi-Fi 60"));
    EXPECT_EQ(callsOf(4), 4 * withoutSensors);
    EXPECT_EQ(callsOf(1), withoutSensors + 2);
}

TEST_F(Sensors, ReadsNothingWhileHidden) {
    useOtherSensors();
    makeModel();
    const int withoutSensors = callsOf(1);
    show();
    view->hide();
    EXPECT_EQ(callsOf(10), 10 * withoutSensors);
    EXPECT_EQ(model->readings().size(), 2U);
}

TEST_F(Sensors, ReadsNothingOnceItIsGone) {
    useOtherSensors();
    makeModel();
    const int withoutSensors = callsOf(1);
    show();
    view.reset();
    EXPECT_EQ(callsOf(10), 10 * withoutSensors);
}

TEST_F(Sensors, LeavesTheReadsToAnotherViewWhenItWasNeverShown) {
    useOtherSensors();
    show();
    SensorsView(*model).resize(100, 100);
    controller.set("TW0P", 60);
    callsOf(5);
    EXPECT_TRUE(lines().contains("Wi-Fi 60"));
}

TEST_F(Sensors, DropsASensorThatCannotBeReadAndTakesItBack) {
    useOtherSensors();
    show();
    controller.set("TW0P", 200);
    callsOf(5);
    EXPECT_EQ(lines(), QStringList({"Other: 1 sensors", "Other TaLP 32"}));
    controller.set("TW0P", 42);
    callsOf(5);
    EXPECT_EQ(lines(), QStringList({"Other: 2 sensors", "Wi-Fi 42", "Other TaLP 32"}));
}

TEST_F(Sensors, FollowsTheFilterWithEveryLetter) {
    useUsualSensors();
    show();
    type("g");
    EXPECT_EQ(lines(), QStringList({"GPU: 2 sensors", "GPU Tg05 48", "GPU Tg0D 60"}));
    type("pu tG0d");
    EXPECT_EQ(lines(), QStringList({"GPU: 1 sensors", "GPU Tg0D 60"}));
    QTest::keyClick(&search(), Qt::Key_Backspace);
    EXPECT_EQ(lines(), QStringList({"GPU: 2 sensors", "GPU Tg05 48", "GPU Tg0D 60"}));
}

TEST_F(Sensors, ReadsNothingForTyping) {
    useUsualSensors();
    show();
    const int before = controller.calls;
    type("gpu");
    EXPECT_EQ(controller.calls, before);
}

TEST_F(Sensors, SaysThatTheFilterLeavesNothing) {
    useUsualSensors();
    show();
    EXPECT_FALSE(shows("No sensors match the filter."));
    type("zebra");
    EXPECT_TRUE(cards().empty());
    EXPECT_TRUE(shows("No sensors match the filter."));
    QTest::keyClick(&search(), Qt::Key_Escape);
    EXPECT_EQ(search().text(), "");
    EXPECT_FALSE(shows("No sensors match the filter."));
    EXPECT_EQ(cards().size(), 3U);
}

TEST_F(Sensors, SaysThatThereAreNoSensors) {
    controller.absent = true;
    show();
    EXPECT_TRUE(cards().empty());
    EXPECT_TRUE(shows("No temperature sensors."));
    EXPECT_EQ(controller.calls, 0);
}

TEST_F(Sensors, GoesToTheFilterWithTheFindKey) {
    useUsualSensors();
    show();
    list().setFocus();
    QTest::keySequence(view.get(), QKeySequence(QKeySequence::Find));
    EXPECT_TRUE(search().hasFocus());
}

TEST_F(Sensors, StartsOverWhenItIsShownAgain) {
    useOtherSensors();
    show();
    type("wi");
    view->hide();
    controller.set("TaLP", 32.5);
    const int before = controller.calls;
    view->show();
    EXPECT_EQ(search().text(), "");
    EXPECT_EQ(controller.calls - before, 2);
    EXPECT_EQ(lines(), QStringList({"Other: 2 sensors", "Wi-Fi 41", "Other TaLP 32.5"}));
}

TEST_F(Sensors, MakesNoWidgetsForItsRows) {
    useSensors(1);
    show();
    const auto few = view->findChildren<QWidget*>().size();
    view.reset();
    model.reset();
    useSensors(1000);
    show();
    EXPECT_EQ(cards().front()->section().count(), "1000 sensors");
    EXPECT_EQ(view->findChildren<QWidget*>().size(), few);
}

TEST_F(Sensors, GoesThroughTheRowsOfAllSectionsByTheArrows) {
    useUsualSensors();
    show();
    search().setFocus();
    QStringList reached;
    for (int press = 0; press < 8; ++press) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
        reached << QString::fromStdString(list().current()->key);
    }
    EXPECT_EQ(reached,
              QStringList({"Te05", "Tp01", "Tp05", "Tg05", "Tg0D", "TH0x", "TH0x", "TH0x"}));
    EXPECT_EQ(cards()[2]->currentRow(), 0);
    QTest::keyClick(&list(), Qt::Key_Up);
    EXPECT_EQ(list().current()->key, "Tg0D");
    EXPECT_EQ(cards()[1]->currentRow(), 1);
    EXPECT_EQ(cards()[2]->currentRow(), std::nullopt);
}

TEST_F(Sensors, ShowsTheCurrentRowOnlyWithTheFocus) {
    useUsualSensors();
    show();
    list().setFocus(Qt::TabFocusReason);
    EXPECT_EQ(cards()[0]->currentRow(), 0);
    search().setFocus();
    EXPECT_EQ(cards()[0]->currentRow(), std::nullopt);
    list().setFocus(Qt::TabFocusReason);
    EXPECT_EQ(cards()[0]->currentRow(), 0);
}

TEST_F(Sensors, KeepsToTheCurrentSensorWhileTheListChanges) {
    useUsualSensors();
    show();
    list().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&list(), Qt::Key_Down);
    ASSERT_EQ(list().current()->key, "Tp01");
    search().setText("tp");
    EXPECT_EQ(cards()[0]->currentRow(), 0);
    search().setText("gpu");
    EXPECT_EQ(cards()[0]->currentRow(), std::nullopt);
    QTest::keyClick(&list(), Qt::Key_Down);
    EXPECT_EQ(list().current()->key, "Tg05");
}

TEST_F(Sensors, ScrollsByTheKeyboard) {
    useSensors(200);
    show();
    list().setFocus(Qt::TabFocusReason);
    const auto row = [this] { return *cards().front()->currentRow(); };
    const auto rowIsSeen = [&] {
        const QRect place = cards().front()->sectionLayout().row(row()).row;
        return cards().front()->visibleRegion().boundingRect().contains(place);
    };
    QTest::keyClick(&list(), Qt::Key_PageDown);
    const int page = row();
    EXPECT_GT(page, 10);
    EXPECT_LT(page, 628 / SensorSectionLayout::rowHeight);
    EXPECT_TRUE(rowIsSeen());
    QTest::keyClick(&list(), Qt::Key_End);
    EXPECT_EQ(row(), 199);
    EXPECT_TRUE(rowIsSeen());
    EXPECT_EQ(scrollBar().value(), scrollBar().maximum());
    QTest::keyClick(&list(), Qt::Key_PageUp);
    // At the end the window shows a margin below the last row.
    EXPECT_NEAR(row(), 199 - page, 1);
    QTest::keyClick(&list(), Qt::Key_Home);
    EXPECT_EQ(row(), 0);
    EXPECT_EQ(scrollBar().value(), 0);
}

TEST_F(Sensors, GoesBackToTheTopWithANewFilter) {
    useSensors(200);
    show();
    scrollBar().setValue(scrollBar().maximum());
    type("c");
    EXPECT_EQ(scrollBar().value(), 0);
}

TEST_F(Sensors, ClearsTheFilterWithEscapeFromTheListToo) {
    useUsualSensors();
    show();
    type("gpu");
    list().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&list(), Qt::Key_Escape);
    EXPECT_EQ(search().text(), "");
}

TEST_F(Sensors, ReadsEveryRowToAssistiveTechnology) {
    useUsualSensors();
    show();
    auto* section = QAccessible::queryAccessibleInterface(cards()[0]);
    ASSERT_TRUE(section);
    EXPECT_EQ(section->role(), QAccessible::List);
    EXPECT_EQ(section->text(QAccessible::Name), "CPU");
    EXPECT_EQ(section->text(QAccessible::Description), "3 sensors");
    ASSERT_EQ(section->childCount(), 3);
    auto* row = section->child(2);
    ASSERT_TRUE(row && row->isValid());
    EXPECT_EQ(row->role(), QAccessible::ListItem);
    EXPECT_EQ(row->text(QAccessible::Name), "CPU Tp05");
    EXPECT_EQ(row->text(QAccessible::Value), "61 °C");
    EXPECT_EQ(row->valueInterface()->currentValue(), 61.0);
    EXPECT_EQ(row->parent(), section);
    EXPECT_EQ(section->indexOfChild(row), 2);
    EXPECT_EQ(section->child(2), row);
    EXPECT_EQ(section->child(3), nullptr);
    const QPoint middle = row->rect().center();
    EXPECT_EQ(section->childAt(middle.x(), middle.y()), row);
    search().setText("tp01");
    EXPECT_FALSE(row->isValid());
    EXPECT_EQ(section->child(0)->text(QAccessible::Name), "CPU Tp01");
}

TEST_F(Sensors, TellsAssistiveTechnologyWhereTheKeyboardIs) {
    useUsualSensors();
    show();
    list().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&list(), Qt::Key_Down);
    auto* section = QAccessible::queryAccessibleInterface(cards()[0]);
    EXPECT_FALSE(section->child(0)->state().focused);
    EXPECT_TRUE(section->child(1)->state().focused);
    EXPECT_EQ(section->focusChild(), section->child(1));
}
