#include "Base/ClosedRange.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace tervale;

TEST(ClosedRange, ContainsBothItsEnds) {
    const ClosedRange range{1200, 6500.5};
    EXPECT_TRUE(range.contains(1200));
    EXPECT_TRUE(range.contains(6500.5));
    EXPECT_FALSE(range.contains(std::nextafter(1200, 0)));
    EXPECT_FALSE(range.contains(std::nextafter(6500.5, 7000)));
    EXPECT_DOUBLE_EQ(range.span(), 5300.5);
}

TEST(ClosedRange, NeverContainsNaN) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_FALSE((ClosedRange{-infinity, infinity}.contains(nan)));
    EXPECT_FALSE((ClosedRange{nan, 10}.contains(5)));
    EXPECT_FALSE((ClosedRange{0, nan}.contains(5)));
}

TEST(ClosedRange, IsEmptyWhenItsEndsAreReversed) {
    EXPECT_FALSE((ClosedRange{2, 1}.contains(1.5)));
}
