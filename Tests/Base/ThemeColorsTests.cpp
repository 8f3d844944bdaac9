#include "Base/ThemeColors.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace tervale;

TEST(ThemeColors, RampFromBlueToRed) {
    EXPECT_EQ(themeColors::thermal(30), (SRGB{0.3, 0.55, 0.96}));
    EXPECT_EQ(themeColors::thermal(-5), themeColors::thermal(30));
    EXPECT_EQ(themeColors::thermal(90), (SRGB{0.9, 0.33, 0.24}));
    EXPECT_EQ(themeColors::thermal(200), themeColors::thermal(90));
    EXPECT_EQ(themeColors::thermal(std::nan("")), themeColors::thermal(90));
    const SRGB middle = themeColors::thermal(40);
    EXPECT_NEAR(middle.red, 0.215, 1e-12);
    EXPECT_NEAR(middle.green, 0.63, 1e-12);
    EXPECT_NEAR(middle.blue, 0.805, 1e-12);
}

TEST(ThemeColors, AreWrittenInSixDigits) {
    EXPECT_EQ(themeColors::accent.hex(), "#1a6ef0");
    EXPECT_EQ(themeColors::accent.number(), themeColors::light.accentLabel);
    EXPECT_EQ((SRGB{0, 0, 1.0 / 255}.hex()), "#000001");
}
