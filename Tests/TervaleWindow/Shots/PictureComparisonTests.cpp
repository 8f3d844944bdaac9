#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Shots/PictureComparison.h"
#include "TervaleWindow/Support/Contrast.h"

#include <QPainter>

#include <gtest/gtest.h>

#include <utility>

using namespace tervale;

namespace {

QImage square(int left, QColor color = Qt::black) {
    QImage image(60, 40, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.fillRect(left, 10, 20, 20, color);
    return image;
}

QImage ground(const QColor& color) {
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(color);
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

TEST(PictureComparison, PassesAnotherRoundingAndNoMore) {
    EXPECT_TRUE(compare(square(10), square(10, QColor(2, 2, 2))).passes());
    EXPECT_FALSE(compare(square(10), square(10, QColor(3, 0, 0))).passes());
    EXPECT_FALSE(compare(square(10), square(10, QColor(0, 3, 0))).passes());
    EXPECT_FALSE(compare(square(10), square(10, QColor(0, 0, 3))).passes());
}

TEST(PictureComparison, FailsForOnePixel) {
    QImage speck = square(10);
    speck.setPixelColor(0, 0, QColor(252, 255, 255));
    const PictureComparison comparison = compare(square(10), speck);
    EXPECT_EQ(comparison.differing, 1);
    EXPECT_FALSE(comparison.passes());
}

TEST(PictureComparison, TellsTheGroundsThatLieOnEachOtherApart) {
    for (const QPalette& palette : {lightPalette(), darkPalette()}) {
        const Colors colors = Colors::of(palette);
        for (const auto& [below, above] :
             {std::pair(colors.window, colors.card), std::pair(colors.window, colors.sidebar),
              std::pair(colors.sidebar, colors.quaternary), std::pair(colors.sidebar, colors.line),
              std::pair(colors.card, colors.quaternary), std::pair(colors.card, colors.line),
              std::pair(colors.card, colors.plot), std::pair(colors.control, colors.controlLine)})
            EXPECT_FALSE(compare(ground(below), ground(onto(below, above))).passes())
                << below.name().toStdString() << " under "
                << above.name(QColor::HexArgb).toStdString();
    }
}

TEST(PictureComparison, FailsForWhatHasMovedByOnePixel) {
    const PictureComparison comparison = compare(square(10), square(11));
    EXPECT_FALSE(comparison.passes());
    EXPECT_EQ(comparison.differing, 40);
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
