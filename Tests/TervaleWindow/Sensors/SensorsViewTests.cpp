#include "TervaleWindow/Appearance/Format.h"
#include "TervaleWindow/Sensors/SensorsFixture.h"

#include <QHelpEvent>
#include <QToolTip>

using namespace tervale;

class Sensors : public SensorsFixture {};

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

TEST_F(Sensors, SaysInATooltipWhatABarIsOf) {
    useUsualSensors();
    show();
    SensorSectionCard& card = *cards().front();
    const auto tipAt = [&card](const QPoint& place) {
        QToolTip::hideText();
        QHelpEvent event(QEvent::ToolTip, place, card.mapToGlobal(place));
        QApplication::sendEvent(&card, &event);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    };
    EXPECT_EQ(tipAt(QPoint(20, 8)), "") << "the section's title";
    const SensorRow& row = card.section().rows.at(1);
    EXPECT_EQ(tipAt(card.sectionLayout().row(1).bar.center()),
              card.section().title() + ": " + row.name + ", " + celsius(row.value));
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

TEST_F(Sensors, GoesBackToTheTopWithANewFilter) {
    useSensors(200);
    show();
    scrollBar().setValue(scrollBar().maximum());
    type("c");
    EXPECT_EQ(scrollBar().value(), 0);
}
