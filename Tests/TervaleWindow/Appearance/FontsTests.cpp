#include "TervaleWindow/Appearance/Fonts.h"

#include <QFile>
#include <QFontDatabase>
#include <QFontInfo>
#include <QOperatingSystemVersion>
#include <QTemporaryFile>

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

TEST(Fonts, AreRoundedOnAMac) {
    if (QOperatingSystemVersion::currentType() != QOperatingSystemVersion::MacOS)
        GTEST_SKIP() << "has no rounded font of its own";
    if (!QFile::exists("/System/Library/Fonts/SFNSRounded.ttf"))
        GTEST_SKIP() << "has none either";
    // What is drawn with, rather than what was asked for.
    const QString family = QFontInfo(roundedFont(13)).family();
    EXPECT_NE(family, QFontInfo(systemFont(13)).family());
    EXPECT_TRUE(family.contains("Rounded")) << family.toStdString();
}

TEST(Fonts, AreTheFirstFamilyThatIsThere) {
    const QString installed = QFontDatabase::families().constFirst();
    EXPECT_EQ(firstInstalledFamily({"No Such Family", installed, "Nor This"}, "Other"), installed);
    EXPECT_EQ(firstInstalledFamily({"No Such Family"}, "Other"), "Other");
    EXPECT_EQ(firstInstalledFamily({}, "Other"), "Other");
}

TEST(Fonts, AreNoneInAFileThatIsNotThereOrHoldsNone) {
    EXPECT_TRUE(familiesInFile("/no/such/font.ttf").isEmpty());
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    file.write("no font");
    file.close();
    EXPECT_TRUE(familiesInFile(file.fileName()).isEmpty());
}
