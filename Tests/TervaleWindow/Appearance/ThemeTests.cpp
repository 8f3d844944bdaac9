#include "TervaleWindow/Appearance/Theme.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace tervale;

namespace {

void expectColor(const QColor& color, double red, double green, double blue) {
    EXPECT_NEAR(color.redF(), red, 1e-4);
    EXPECT_NEAR(color.greenF(), green, 1e-4);
    EXPECT_NEAR(color.blueF(), blue, 1e-4);
    EXPECT_EQ(color.alphaF(), 1.0f);
    EXPECT_EQ(color.spec(), QColor::Rgb);
}

} // namespace

TEST(Theme, HasOneAccent) {
    expectColor(Theme::accent(), 0.1, 0.43, 0.94);
}

TEST(Theme, ReturnsTheStopsThemselves) {
    expectColor(Theme::thermal(30), 0.3, 0.55, 0.96);
    expectColor(Theme::thermal(50), 0.13, 0.71, 0.65);
    expectColor(Theme::thermal(70), 0.91, 0.64, 0.23);
    expectColor(Theme::thermal(90), 0.9, 0.33, 0.24);
}

TEST(Theme, InterpolatesWithinEachSegment) {
    expectColor(Theme::thermal(40), 0.215, 0.63, 0.805);
    expectColor(Theme::thermal(65), 0.715, 0.6575, 0.335);
    expectColor(Theme::thermal(80), 0.905, 0.485, 0.235);
}

TEST(Theme, ClampsToItsEnds) {
    EXPECT_EQ(Theme::thermal(-5), Theme::thermal(30));
    EXPECT_EQ(Theme::thermal(-std::numeric_limits<double>::infinity()), Theme::thermal(30));
    EXPECT_EQ(Theme::thermal(140), Theme::thermal(90));
    EXPECT_EQ(Theme::thermal(std::numeric_limits<double>::infinity()), Theme::thermal(90));
}

TEST(Theme, HasAValidColorForNaN) {
    EXPECT_EQ(Theme::thermal(std::numeric_limits<double>::quiet_NaN()), Theme::thermal(90));
}

TEST(ThermalGradient, HasAStopForEveryEighthOfTheRange) {
    const QGradientStops stops = Theme::thermalGradient({20, 100});
    ASSERT_EQ(stops.size(), 9);
    for (int index = 0; index < 9; ++index) {
        EXPECT_EQ(stops[index].first, index * 0.125);
        EXPECT_EQ(stops[index].second, Theme::thermal(20 + index * 10));
    }
}

TEST(ThermalGradient, BeginsAndEndsWithOneColorWhereItRunsPastTheRamp) {
    const QGradientStops stops = Theme::thermalGradient({20, 100});
    EXPECT_EQ(stops[0].second, stops[1].second);
    EXPECT_EQ(stops[7].second, stops[8].second);
    EXPECT_NE(stops[1].second, stops[2].second);
}

TEST(ThermalGradient, LeavesTheEndOutWhereTheLastStepFallsBeyondIt) {
    // As doubles, 25.4 + (104.7 - 25.4) comes to lie just above 104.7.
    const ClosedRange range{25.4, 104.7};
    ASSERT_GT(range.lower + range.span(), range.upper);
    const QGradientStops stops = Theme::thermalGradient(range);
    ASSERT_EQ(stops.size(), 8);
    EXPECT_NEAR(stops.last().first, 0.875, 1e-12);
}

TEST(ThermalGradient, SurvivesRangesWithoutAWidth) {
    const QGradientStops stops = Theme::thermalGradient({40, 40});
    ASSERT_EQ(stops.size(), 1);
    EXPECT_EQ(stops[0], qMakePair(0.0, Theme::thermal(40)));
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(Theme::thermalGradient({nan, nan}).size(), 1);
}
