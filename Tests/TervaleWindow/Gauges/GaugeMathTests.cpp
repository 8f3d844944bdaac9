#include "Support/NotANumber.h"
#include "TervaleWindow/Gauges/GaugeMath.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace tervale;

namespace {
using tervale::test::notANumber;
}

TEST(FractionOf, IsLinearWithinTheRange) {
    EXPECT_EQ(fractionOf(1000, {1000, 5000}), 0);
    EXPECT_EQ(fractionOf(2000, {1000, 5000}), 0.25);
    EXPECT_EQ(fractionOf(5000, {1000, 5000}), 1);
}

TEST(FractionOf, IsClampedOutsideTheRange) {
    EXPECT_EQ(fractionOf(0, {1000, 5000}), 0);
    EXPECT_EQ(fractionOf(9000, {1000, 5000}), 1);
}

TEST(FractionOf, PassesOnWhatIsNoNumber) {
    EXPECT_TRUE(std::isnan(fractionOf(3000, {3000, 3000}) /* nothing over nothing */));
    EXPECT_TRUE(std::isnan(fractionOf(notANumber, {1000, 5000})));
}

TEST(FractionOf, ClampsTheInfinitiesOfARangeWithoutAWidth) {
    EXPECT_EQ(fractionOf(2000, {3000, 3000}), 0);
    EXPECT_EQ(fractionOf(4000, {3000, 3000}), 1);
}

TEST(FractionOf, OfATemperatureRunsFromTwentyToAHundredDegrees) {
    EXPECT_EQ(fractionOf(-5, thermalBarRange), 0);
    EXPECT_EQ(fractionOf(20, thermalBarRange), 0);
    EXPECT_EQ(fractionOf(60, thermalBarRange), 0.5);
    EXPECT_EQ(fractionOf(100, thermalBarRange), 1);
    EXPECT_EQ(fractionOf(130, thermalBarRange), 1);
}

TEST(TickAngle, RunsClockwiseOverTheTop) {
    EXPECT_EQ(tickAngle(0), 135);
    EXPECT_EQ(tickAngle(0.5), 0);
    EXPECT_EQ(tickAngle(1), -135);
}

TEST(ArcSweep, IsThreeQuartersOfACircleWhenFull) {
    EXPECT_EQ(arcSweep(0), 0);
    EXPECT_EQ(arcSweep(0.5), 135);
    EXPECT_EQ(arcSweep(1), 270);
    EXPECT_EQ(arcSweep(notANumber), 0);
}

TEST(LitLength, IsNeverShorterThanTheBarIsHigh) {
    EXPECT_EQ(litLength(0, 200, 8), 8);
    EXPECT_EQ(litLength(0.01, 200, 8), 8);
    EXPECT_EQ(litLength(0.5, 200, 8), 100);
    EXPECT_EQ(litLength(1, 200, 8), 200);
    EXPECT_EQ(litLength(notANumber, 200, 8), 8);
}
