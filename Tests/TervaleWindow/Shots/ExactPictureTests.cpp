#include "TervaleWindow/Shots/ExactPicture.h"

#include <gtest/gtest.h>

using namespace tervale;

namespace {

/// Every pixel in another colour.
QImage colorful(QImage::Format format) {
    QImage image(37, 23, format);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixelColor(x, y, QColor(x * 6, y * 11, (x * y) % 256, 255 - x * 5));
    }
    return image;
}

} // namespace

TEST(ExactPicture, IsReadWithThePixelsThatWereWritten) {
    for (const QImage::Format format :
         {QImage::Format_RGB32, QImage::Format_ARGB32, QImage::Format_ARGB32_Premultiplied}) {
        const QImage image = colorful(format);
        const QImage read = QImage::fromData(exactPNG(image), "PNG");
        ASSERT_FALSE(read.isNull()) << format;
        EXPECT_TRUE(samePixels(image, read)) << format;
        EXPECT_EQ(read.hasAlphaChannel(), image.hasAlphaChannel()) << format;
    }
}

TEST(ExactPicture, IsAnotherForOneStepOfOnePixel) {
    const QImage image = colorful(QImage::Format_RGB32);
    QImage other = image;
    const QColor color = other.pixelColor(36, 22);
    other.setPixelColor(36, 22, QColor(color.red(), color.green(), color.blue() ^ 1));
    EXPECT_FALSE(samePixels(image, other));
    EXPECT_FALSE(samePixels(image, image.copy(0, 0, 36, 23)));
    EXPECT_NE(exactPNG(image), exactPNG(other));
}
