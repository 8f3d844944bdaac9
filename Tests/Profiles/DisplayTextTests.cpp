#include "Profiles/DisplayText.h"

#include <gtest/gtest.h>

using namespace tervale;

TEST(DisplayText, WritesTemperaturesInWholeDegrees) {
    EXPECT_EQ(displayText::celsius(47.5), "48 °C");
    EXPECT_EQ(displayText::celsius(47.4999), "47 °C");
    EXPECT_EQ(displayText::celsius(-0.5), "-1 °C");
    EXPECT_EQ(displayText::celsius(-0.4), "0 °C");
}

TEST(DisplayText, WritesFractionsInWholePercent) {
    EXPECT_EQ(displayText::percent(0.5), "50%");
    EXPECT_EQ(displayText::percent(0.125), "13%");
    EXPECT_EQ(displayText::percent(-0.004), "0%");
    EXPECT_EQ(displayText::percent(1e18), "100000000000000000000%");
}

TEST(DisplayText, CountsFansFromOne) {
    EXPECT_EQ(displayText::fan(0), "Fan 1");
    EXPECT_EQ(displayText::fan(9), "Fan 10");
}

TEST(DisplayText, NamesActions) {
    const Profile quiet{UUID::random(), "Quiet", kind::Load{}};
    const std::vector<Profile> profiles{quiet};
    EXPECT_EQ(displayText::nameOf(action::Automatic{}, profiles), "Automatic");
    EXPECT_EQ(displayText::nameOf(action::Fixed{1.0}, profiles), "Max");
    EXPECT_EQ(displayText::nameOf(action::Fixed{1.5}, profiles), "Max");
    EXPECT_EQ(displayText::nameOf(action::Fixed{0.999}, profiles), "100%");
    EXPECT_EQ(displayText::nameOf(action::Profile{quiet.id}, profiles), "Quiet");
    EXPECT_EQ(displayText::nameOf(action::Profile{UUID{}}, profiles), "Missing profile");
}
