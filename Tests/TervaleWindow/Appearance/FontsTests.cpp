#include "TervaleWindow/Appearance/Fonts.h"

#include <QFontDatabase>
#include <QOperatingSystemVersion>

#include <gtest/gtest.h>

using namespace tervale;

TEST(Fonts, AreSizedInPixels) {
    const QFont font = systemFont(fontSize::caption, QFont::Medium);
    EXPECT_EQ(font.pixelSize(), 11);
    EXPECT_EQ(font.weight(), QFont::Medium);
    EXPECT_EQ(roundedFont(28, QFont::Bold).pixelSize(), 28);
    EXPECT_EQ(roundedFont(28, QFont::Bold).weight(), QFont::Bold);
}

TEST(Fonts, AreInterWhereItIsInstalled) {
    if (QOperatingSystemVersion::currentType() == QOperatingSystemVersion::MacOS)
        GTEST_SKIP() << "has a system font of its own";
    const QString expected = QFontDatabase::hasFamily("Inter")
                                 ? QString("Inter")
                                 : QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
    EXPECT_EQ(systemFont(13).family(), expected);
    EXPECT_EQ(roundedFont(13).family(), expected);
}
