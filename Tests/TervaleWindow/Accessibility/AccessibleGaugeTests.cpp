#include "TervaleWindow/Accessibility/AccessibleFactory.h"
#include "TervaleWindow/Gauges/FanDial.h"
#include "TervaleWindow/Gauges/ThermalBar.h"

#include <QAccessible>

#include <gtest/gtest.h>

using namespace tervale;

class AccessibleGauges : public testing::Test {
  protected:
    AccessibleGauges() { installAccessibleFactory(); }
};

TEST_F(AccessibleGauges, ReadADialByItsNameAndSpeed) {
    FanDial dial;
    dial.set({.rpm = 2893.4375, .target = 3000, .min = 1200, .max = 5777});
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&dial);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->text(QAccessible::Name), "Fan");
    EXPECT_EQ(accessible->text(QAccessible::Value), "2893 rpm");
    QAccessibleValueInterface* value = accessible->valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->currentValue().toString(), "2893 rpm");
    EXPECT_EQ(value->currentValue().toDouble(), 2893.4375);
    EXPECT_EQ(value->maximumValue().toDouble(), 5777);
    dial.setAccessibleName("Fan 2");
    EXPECT_EQ(accessible->text(QAccessible::Name), "Fan 2");
}

TEST_F(AccessibleGauges, ReadTheSpeedThatTheDialShows) {
    FanDial dial;
    for (const double half : {2891.5, 2892.5}) {
        dial.set({.rpm = half, .target = 3000, .min = 1200, .max = 5777});
        EXPECT_EQ(dial.reading().text, "2892 rpm");
    }
}

TEST_F(AccessibleGauges, ReadABarByItsNameAndTemperature) {
    ThermalBar bar(8);
    bar.setAccessibleName("CPU");
    bar.setValue(57.5);
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&bar);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->text(QAccessible::Name), "CPU");
    EXPECT_EQ(accessible->text(QAccessible::Value), "58 °C");
    QAccessibleValueInterface* value = accessible->valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->currentValue().toString(), "58 °C");
    EXPECT_EQ(value->currentValue().toDouble(), 57.5);
    EXPECT_EQ(value->minimumValue().toDouble(), 20);
    EXPECT_EQ(value->maximumValue().toDouble(), 100);
    EXPECT_TRUE(accessible->state().readOnly);
}
