#include "tervalectl/Quantities.h"

#include <gtest/gtest.h>

using namespace tervale;

TEST(Quantities, TakePercentagesFrom0To100) {
    EXPECT_EQ(quantities::percentage("0%"), 0.0);
    EXPECT_EQ(quantities::percentage("40%"), 0.4);
    EXPECT_EQ(quantities::percentage("12.5%"), 0.125);
    EXPECT_EQ(quantities::percentage("33.3%"), 0.333);
    EXPECT_EQ(quantities::percentage("100%"), 1.0);
    for (const char* text : {"", "%", "40", "101%", "-1%", "+1%", "1e1%", " 4%", "4 %", "4%%",
                             ".5%", "5.%", "0x1%", "nan%", "1,5%"})
        EXPECT_EQ(quantities::percentage(text), std::nullopt) << text;
}

TEST(Quantities, TakeDurationsInSecondsAndUnits) {
    EXPECT_EQ(quantities::duration("90"), 90.0);
    EXPECT_EQ(quantities::duration("0.5"), 0.5);
    EXPECT_EQ(quantities::duration("90s"), 90.0);
    EXPECT_EQ(quantities::duration("15m"), 900.0);
    EXPECT_EQ(quantities::duration("1h30m"), 5400.0);
    EXPECT_EQ(quantities::duration("2h5s"), 7205.0);
    for (const char* text : {"", "0", "0m", "-5", "m", "5x", "30m1h", "5mm", "1h30", "1.5h", "inf",
                             "99999999999", "1h 5m"})
        EXPECT_EQ(quantities::duration(text), std::nullopt) << text;
}

TEST(Quantities, TakeWholeNumbersThatFit) {
    EXPECT_EQ(quantities::whole("0"), 0);
    EXPECT_EQ(quantities::whole("9223372036854775807"), INT64_MAX);
    for (const char* text : {"", "-1", "1.0", "9223372036854775808", "1e3"})
        EXPECT_EQ(quantities::whole(text), std::nullopt) << text;
}
