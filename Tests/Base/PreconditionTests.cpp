#include "Base/Precondition.h"

#include <gtest/gtest.h>

#include <limits>

using namespace tervale;

TEST(Precondition, StopsTheProcessOnlyWhenItDoesNotHold) {
    precondition(true, "holds");
    EXPECT_DEATH(precondition(false, "does not hold"), "does not hold");
}

TEST(TruncatedToInteger, DropsTheFraction) {
    EXPECT_EQ(truncatedToInteger(2.9), 2);
    EXPECT_EQ(truncatedToInteger(-2.9), -2);
    EXPECT_EQ(truncatedToInteger(-9223372036854775808.0), std::numeric_limits<std::int64_t>::min());
}

TEST(TruncatedToInteger, StopsTheProcessForNumbersThatAreNoInteger) {
    EXPECT_DEATH(truncatedToInteger(std::numeric_limits<double>::quiet_NaN()), "no 64-bit integer");
    EXPECT_DEATH(truncatedToInteger(std::numeric_limits<double>::infinity()), "no 64-bit integer");
    EXPECT_DEATH(truncatedToInteger(9223372036854775808.0), "no 64-bit integer");
}

TEST(RoundedToInteger, RoundsHalvesAwayFromZero) {
    EXPECT_EQ(roundedToInteger(47.5), 48);
    EXPECT_EQ(roundedToInteger(-0.4), 0);
    EXPECT_EQ(roundedToInteger(-0.5), -1);
}

TEST(RoundedToInteger, StopsTheProcessForNumbersThatAreNoInteger) {
    EXPECT_DEATH(roundedToInteger(std::numeric_limits<double>::quiet_NaN()), "no 64-bit integer");
    EXPECT_DEATH(roundedToInteger(-std::numeric_limits<double>::infinity()), "no 64-bit integer");
    EXPECT_DEATH(roundedToInteger(9223372036854775808.0), "no 64-bit integer");
}
