#include "Profiles/Hysteresis.h"
#include "Support/NotANumber.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <random>

using namespace tervale;

namespace {

using tervale::test::notANumber;

} // namespace

TEST(Hysteresis, PassesTheFirstAndRisingReadings) {
    Hysteresis filter(3);
    EXPECT_EQ(filter.filter(60), 60);
    EXPECT_EQ(filter.filter(60.1), 60.1);
    EXPECT_EQ(filter.filter(90), 90);
}

TEST(Hysteresis, HoldsAFallUpToItsBand) {
    Hysteresis filter(3);
    filter.filter(60);
    EXPECT_EQ(filter.filter(58), 60);
    EXPECT_EQ(filter.filter(57), 60);
    EXPECT_EQ(filter.filter(60), 60);
}

TEST(Hysteresis, FollowsALargerFallOneBandAbove) {
    Hysteresis filter(3);
    filter.filter(60);
    EXPECT_EQ(filter.filter(56.5), 59.5);
    EXPECT_EQ(filter.filter(59), 59.5) << "a small rise after the fall is held too";
    EXPECT_EQ(filter.filter(59.6), 59.6);
}

TEST(Hysteresis, PassesNaNAndWhatComesAfterIt) {
    Hysteresis filter(3);
    filter.filter(60);
    EXPECT_TRUE(std::isnan(filter.filter(notANumber)));
    EXPECT_EQ(filter.filter(40), 40);
    EXPECT_EQ(filter.filter(38), 40);
}

TEST(Hysteresis, IsNeverBelowTheReadingNorABandAboveIt) {
    std::mt19937 random(2);
    std::uniform_real_distribution<double> step(-8, 8);
    Hysteresis filter(3);
    double reading = 60;
    double previous = filter.filter(reading);
    for (int i = 0; i < 20000; ++i) {
        reading = std::clamp(reading + step(random), 5.0, 130.0);
        const double result = filter.filter(reading);
        EXPECT_GE(result, reading);
        EXPECT_LE(result, reading + 3 + 1e-9);
        if (result < previous) {
            EXPECT_EQ(result, reading + 3) << "it only falls to one band above the reading";
        } else if (result > previous) {
            EXPECT_EQ(result, reading) << "it only rises to the reading itself";
        }
        previous = result;
    }
}
