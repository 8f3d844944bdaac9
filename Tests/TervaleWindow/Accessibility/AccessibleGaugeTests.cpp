#include "TervaleWindow/Accessibility/AccessibleFactory.h"
#include "TervaleWindow/Gauges/FanDial.h"
#include "TervaleWindow/Gauges/ThermalBar.h"

#include <QAccessible>

#include <gtest/gtest.h>

using namespace tervale;

class AccessibleGauges : public testing::Test {
  protected:
    AccessibleGauges() { installAccessibleFactory(); }

    static QAccessibleInterface* accessible(QWidget& gauge) {
        return QAccessible::queryAccessibleInterface(&gauge);
    }
    static QString nameOf(QWidget& gauge) { return accessible(gauge)->text(QAccessible::Name); }
};

TEST_F(AccessibleGauges, ReadADialByItsNameItsSpeedAndWhoSetsIt) {
    FanDial dial;
    dial.set({.rpm = 1732.4375, .target = 3000, .min = 1200, .max = 5777, .manual = true});
    EXPECT_EQ(nameOf(dial), "Fan, 1732 rpm, Set by Tervale");
    dial.setAccessibleName("Fan 1");
    EXPECT_EQ(nameOf(dial), "Fan 1, 1732 rpm, Set by Tervale");
    dial.set({.rpm = 1732.4375, .target = 3000, .min = 1200, .max = 5777});
    EXPECT_EQ(nameOf(dial), "Fan 1, 1732 rpm, Controlled by macOS");
}

TEST_F(AccessibleGauges, ReadTheSpeedThatTheDialShows) {
    FanDial dial;
    for (const double half : {2891.5, 2892.5}) {
        dial.set({.rpm = half, .target = 3000, .min = 1200, .max = 5777});
        EXPECT_TRUE(dial.reading().startsWith("2892 rpm"));
    }
}

TEST_F(AccessibleGauges, ReadABarByItsNameAndTemperature) {
    ThermalBar bar(8);
    bar.setValue(57.5);
    EXPECT_EQ(nameOf(bar), "58 °C");
    bar.setAccessibleName("CPU");
    EXPECT_EQ(nameOf(bar), "CPU, 58 °C");
}

TEST_F(AccessibleGauges, AreTextsWithoutAValueToRaise) {
    FanDial dial;
    ThermalBar bar(8);
    for (QWidget* gauge : {static_cast<QWidget*>(&dial), static_cast<QWidget*>(&bar)}) {
        // What a Mac reads as the value of a text is its name.
        EXPECT_EQ(accessible(*gauge)->role(), QAccessible::StaticText);
        EXPECT_EQ(accessible(*gauge)->valueInterface(), nullptr);
        EXPECT_EQ(accessible(*gauge)->childCount(), 0);
    }
}
