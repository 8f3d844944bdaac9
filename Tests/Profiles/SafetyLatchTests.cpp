#include "Profiles/SafetyLatch.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <random>

using namespace tervale;

TEST(SafetyLatch, EngagesAtItsUpperAndReleasesBelowItsLowerThreshold) {
    SafetyLatch latch;
    EXPECT_FALSE(latch.engaged());
    EXPECT_FALSE(latch.update(94.999));
    EXPECT_TRUE(latch.update(95.0));
    EXPECT_TRUE(latch.update(85.0));
    EXPECT_TRUE(latch.engaged());
    EXPECT_FALSE(latch.update(84.999));
    EXPECT_FALSE(latch.update(94.0));
}

TEST(SafetyLatch, KeepsItsStateWithoutAReading) {
    SafetyLatch latch;
    EXPECT_FALSE(latch.update(std::nullopt));
    EXPECT_FALSE(latch.update(std::nan("")));
    latch.update(100);
    EXPECT_TRUE(latch.update(std::nullopt));
    EXPECT_TRUE(latch.update(std::nan("")));
}

TEST(SafetyLatch, ObeysItsThresholdsForAnyReadings) {
    std::mt19937 random(3);
    std::uniform_real_distribution<double> celsius(80, 100);
    SafetyLatch latch;
    bool lastDecisiveWasHot = false;
    for (int i = 0; i < 20000; ++i) {
        const double rounded = std::round(celsius(random));
        if (random() % 5 == 0) {
            latch.update(std::nullopt);
        } else {
            latch.update(rounded);
            if (rounded >= 95 || rounded < 85)
                lastDecisiveWasHot = rounded >= 95;
        }
        ASSERT_EQ(latch.engaged(), lastDecisiveWasHot);
    }
}
