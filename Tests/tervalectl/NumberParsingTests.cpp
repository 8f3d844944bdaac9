#include "tervalectl/NumberParsing.h"

#include <gtest/gtest.h>

using namespace tervale;

TEST(NumberParsing, TakePercentagesFrom0To100) {
    EXPECT_EQ(parsePercentage("0%"), 0.0);
    EXPECT_EQ(parsePercentage("40%"), 0.4);
    EXPECT_EQ(parsePercentage("12.5%"), 0.125);
    EXPECT_EQ(parsePercentage("33.3%"), 0.333);
    EXPECT_EQ(parsePercentage("100%"), 1.0);
    for (const char* text : {"", "%", "40", "101%", "-1%", "+1%", "1e1%", " 4%", "4 %", "4%%",
                             ".5%", "5.%", "0x1%", "nan%", "1,5%"})
        EXPECT_EQ(parsePercentage(text), std::nullopt) << text;
}

TEST(NumberParsing, TakeDurationsInSecondsAndUnits) {
    EXPECT_EQ(parseDuration("90"), 90.0);
    EXPECT_EQ(parseDuration("0.5"), 0.5);
    EXPECT_EQ(parseDuration("90s"), 90.0);
    EXPECT_EQ(parseDuration("15m"), 900.0);
    EXPECT_EQ(parseDuration("1h30m"), 5400.0);
    EXPECT_EQ(parseDuration("2h5s"), 7205.0);
    for (const char* text : {"", "0", "0m", "-5", "m", "5x", "30m1h", "5mm", "1h30", "1.5h", "inf",
                             "99999999999", "1h 5m"})
        EXPECT_EQ(parseDuration(text), std::nullopt) << text;
}

TEST(NumberParsing, TakeWholeNumbersThatFit) {
    EXPECT_EQ(parseWholeNumber("0"), 0);
    EXPECT_EQ(parseWholeNumber("9223372036854775807"), INT64_MAX);
    for (const char* text : {"", "-1", "1.0", "9223372036854775808", "1e3"})
        EXPECT_EQ(parseWholeNumber(text), std::nullopt) << text;
}
