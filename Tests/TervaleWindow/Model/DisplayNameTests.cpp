#include "TervaleWindow/Model/DisplayName.h"

#include <gtest/gtest.h>

using namespace tervale;

namespace {

Profile named(const std::string& name) {
    return {UUID{{1}}, name, kind::Load{}};
}

} // namespace

TEST(DisplayName, IsTheNameOnOneLineOrUntitled) {
    EXPECT_EQ(displayName(named("Quiet")), "Quiet");
    EXPECT_EQ(displayName(named("")), "Untitled");
    EXPECT_EQ(displayName(named("Quiet\nand\r\ncool\u2028now\u2029!")), "Quiet and  cool now !");
    EXPECT_EQ(displayName(named("a & b")), "a & b");
}

TEST(DisplayName, IsCutWhereNobodyReadsOn) {
    const QString name = displayName(named(std::string(200'000, 'x')));
    EXPECT_EQ(name.size(), longestName);
    EXPECT_TRUE(name.endsWith(u'…'));
    EXPECT_EQ(displayName(named(std::string(longestName, 'x'))), QString(longestName, u'x'));
}

TEST(DisplayName, IsNotCutInTheMiddleOfACharacter) {
    const QString moons = QString::fromUtf8("🌙").repeated(10);
    EXPECT_EQ(shortened(moons, 6), QString::fromUtf8("🌙🌙…"));
    EXPECT_EQ(shortened(moons, 7), QString::fromUtf8("🌙🌙🌙…"));
}

TEST(DisplayName, OfAnActionIsThatOfItsProfile) {
    const std::vector<Profile> profiles{named("")};
    EXPECT_EQ(displayName(action::Profile{UUID{{1}}}, profiles), "Untitled");
    EXPECT_EQ(displayName(action::Profile{UUID{{2}}}, profiles), "Missing profile");
    EXPECT_EQ(displayName(action::Fixed{1}, profiles), "Max");
    EXPECT_EQ(displayName(action::Automatic{}, profiles), "Automatic");
}
