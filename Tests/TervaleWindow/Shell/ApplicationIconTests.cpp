#include "TervaleWindow/Shell/ApplicationIcon.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace tervale;

TEST(ApplicationIcon, HasTheSizesThatDesktopsAskFor) {
    const QList<QSize> sizes = applicationIcon().availableSizes();
    for (const int size : {16, 24, 32, 48, 64, 128})
        EXPECT_TRUE(sizes.contains(QSize(size, size))) << size;
    EXPECT_EQ(sizes.size(), 6);
}

TEST(ApplicationIcon, IsDrawnInEverySize) {
    for (const int size : {16, 24, 32, 48, 64, 128}) {
        const QImage image = applicationIcon().pixmap(size).toImage();
        ASSERT_EQ(image.size(), QSize(size, size));
        EXPECT_EQ(image.pixelColor(size / 2, size / 2).alpha(), 255);
        EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
    }
}

TEST(ApplicationIcon, BelongsToADesktopEntryThatIsThere) {
    QFile entry(QStringLiteral(TERVALE_PACKAGING "/linux/%1.desktop")
                    .arg(QString::fromLatin1(desktopEntry)));
    ASSERT_TRUE(entry.open(QIODevice::ReadOnly));
    EXPECT_TRUE(entry.readAll().contains(QByteArray("\nIcon=") + desktopEntry + '\n'));
}
