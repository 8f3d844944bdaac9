#include "TervaleWindow/Gauges/FanDial.h"
#include "TervaleWindow/Gauges/ThermalBar.h"
#include "TervaleWindow/Overview/FansPanel.h"
#include "TervaleWindow/Overview/OverviewFixture.h"
#include "TervaleWindow/Support/HeardEvents.h"

#include <QAccessible>

namespace tervale {
namespace {

class OverviewGauges : public OverviewFixture {};

TEST_F(OverviewGauges, NumbersItsFansOnlyWhenThereAreSeveral) {
    show();
    EXPECT_TRUE(shows("Fan 1"));
    EXPECT_TRUE(shows("Fan 2"));
    controller.setFanCount(1);
    model->refresh();
    EXPECT_FALSE(shows("Fan 1"));
    EXPECT_EQ(view->findChildren<FanDial*>().size(), 1);
}

TEST_F(OverviewGauges, SaysWhatItsDialsBarsAndFiguresAreOf) {
    show();
    for (const auto* dial : view->findChildren<FanDial*>())
        EXPECT_TRUE(dial->toolTip().startsWith(dial->accessibleName() + ":"));
    QStringList tips;
    for (const auto* bar : view->findChildren<ThermalBar*>()) {
        if (bar->isVisible())
            tips << bar->toolTip();
        EXPECT_TRUE(bar->toolTip().startsWith(bar->accessibleName() + ", "));
        EXPECT_TRUE(bar->toolTip().endsWith(bar->accessibleDescription()));
    }
    EXPECT_TRUE(tips.contains("CPU, core average")) << tips.join("; ").toStdString();
    const auto* ssd = view->findChild<QLabel*>();
    for (const auto* label : view->findChildren<QLabel*>()) {
        if (label->text() == "SSD")
            ssd = label;
    }
    EXPECT_EQ(ssd->toolTip(), "SSD, hottest sensor");
}

TEST_F(OverviewGauges, HasNoDialsWithoutAController) {
    controller.absent = true;
    show();
    EXPECT_TRUE(view->findChildren<FanDial*>().isEmpty());
    EXPECT_FALSE(view->findChild<FansPanel*>()->isVisible());
    QTest::mouseClick(&mode("50%"), Qt::LeftButton);
    EXPECT_EQ(takeCommands().size(), 1U);
}

TEST_F(OverviewGauges, DrawsACardForFansOnceThereAreSome) {
    controller.setFanCount(0);
    show();
    const auto* panel = view->findChild<FansPanel*>();
    EXPECT_FALSE(panel->isVisible());
    controller.setFanCount(2);
    model->refresh();
    EXPECT_TRUE(panel->isVisible());
}

TEST_F(OverviewGauges, LeavesAirBetweenADialAndItsCaption) {
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

TEST_F(OverviewGauges, ShowsTheAverageAndTheHottestOfTheProcessorAndOneFigureOfOthers) {
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

TEST_F(OverviewGauges, ReadsItsGaugesInWords) {
    show();
    const auto nameOf = [](QWidget* gauge) {
        return QAccessible::queryAccessibleInterface(gauge)->text(QAccessible::Name);
    };
    auto* dial = named<FanDial>("Fan 1");
    ASSERT_NE(dial, nullptr);
    EXPECT_EQ(nameOf(dial), "Fan 1, 2893 rpm, Set by Tervale");
    auto* bar = named<ThermalBar>("CPU");
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(nameOf(bar), "CPU, 58 °C");
}

TEST_F(OverviewGauges, TellOfAFanOnceAndOnlyWhenItReadsOtherwise) {
    show();
    HeardEvents heard;
    controller.setFan(0, 3500, 3600, 1200, 5777, 1);
    model->refresh();
    EXPECT_EQ(heard.take().filter("Fan "), QStringList{"name: Fan 1, 3500 rpm, Set by Tervale"});
}

} // namespace
} // namespace tervale
