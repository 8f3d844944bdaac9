#include "TervaleWindow/Appearance/MenuTitle.h"

#include <gtest/gtest.h>

using namespace tervale;

TEST(MenuTitle, KeepsAmpersandsAndHasNoTabs) {
    EXPECT_EQ(menuTitle("Loud & clear\tand long"), "Loud && clear and long");
    EXPECT_EQ(menuTitle("&&"), "&&&&");
    EXPECT_EQ(menuTitle(""), "");
}
