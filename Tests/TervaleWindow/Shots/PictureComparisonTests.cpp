#include "TervaleWindow/Shots/PictureComparison.h"

#include <QPainter>

#include <gtest/gtest.h>

using namespace tervale;

namespace {

QImage square(int left, QColor color = Qt::black) {
    QImage image(60, 40, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.fillRect(left, 10, 20, 20, color);
    return image;
}

int redPixels(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == QColor(220, 0, 0) ? 1 : 0;
    }
    return count;
}

} // namespace

TEST(PictureComparison, PassesWhatIsEqual) {
    EXPECT_TRUE(compare(square(10), square(10)).passes());
    EXPECT_EQ(compare(square(10), square(10)).differing, 0);
}

TEST(PictureComparison, PassesAnotherRoundingOfEdges) {
    EXPECT_TRUE(compare(square(10), square(10, QColor(20, 20, 20))).passes());
    QImage speck = square(10);
    speck.setPixelColor(0, 0, Qt::black);
    EXPECT_TRUE(compare(square(10), speck).passes());
}

TEST(PictureComparison, FailsForWhatHasMovedByOnePixel) {
    const PictureComparison comparison = compare(square(10), square(11));
    EXPECT_FALSE(comparison.passes());
    EXPECT_EQ(comparison.differing, 40);
}

TEST(PictureComparison, FailsForAnotherColor) {
    EXPECT_FALSE(compare(square(10), square(10, QColor(40, 0, 0))).passes());
}

TEST(PictureComparison, FailsForAnotherSizeAndForNoPicture) {
    EXPECT_FALSE(compare(square(10), square(10).copy(0, 0, 60, 39)).passes());
    EXPECT_FALSE(compare(QImage(), square(10)).passes());
    EXPECT_FALSE(compare(QImage(), QImage()).passes());
}

TEST(PictureComparison, ShowsWhatDiffers) {
    EXPECT_EQ(redPixels(differencePicture(square(10), square(11))), 40);
    EXPECT_EQ(redPixels(differencePicture(square(10), square(10))), 0);
    EXPECT_EQ(redPixels(differencePicture(QImage(), square(10))), 60 * 40);
}
