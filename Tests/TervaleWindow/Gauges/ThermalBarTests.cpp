#include "TervaleWindow/Gauges/GaugeTestSupport.h"
#include "TervaleWindow/Gauges/ThermalBar.h"

#include <gtest/gtest.h>

using namespace tervale;

TEST(ThermalBar, TakesItsHeightFromItsOwnerAndItsWidthFromItsContainer) {
    const ThermalBar bar(6);
    EXPECT_EQ(bar.height(), 6);
    EXPECT_EQ(bar.minimumHeight(), 6);
    EXPECT_EQ(bar.maximumHeight(), 6);
    EXPECT_EQ(bar.sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
}

TEST(ThermalBar, TurnsATemperatureIntoAFraction) {
    ThermalBar bar(8);
    bar.setValue(58);
    EXPECT_DOUBLE_EQ(bar.fraction(), 0.475);
    bar.setValue(12);
    EXPECT_EQ(bar.fraction(), 0);
    bar.setValue(250);
    EXPECT_EQ(bar.fraction(), 1);
}

TEST(ThermalBar, DoesNotAnimateBeyondItsEnds) {
    ThermalBar bar(8);
    bar.resize(200, 8);
    bar.setValue(105);
    showAndSettle(bar);
    bar.setValue(110);
    EXPECT_FALSE(bar.isAnimating());
}
