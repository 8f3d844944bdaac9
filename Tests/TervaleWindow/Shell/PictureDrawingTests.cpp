#include "TervaleWindow/Shell/PictureDrawing.h"

#include <QImage>

#include <gtest/gtest.h>

using namespace tervale;

TEST(PictureDrawing, DrawsADocumentAtTwiceItsSize) {
    const QByteArray png = pngOf("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"30\" "
                                 "height=\"20\"><rect width=\"15\" height=\"20\" "
                                 "fill=\"#1a6ef0\"/></svg>");
    const QImage image = QImage::fromData(png, "PNG");
    ASSERT_EQ(image.size(), QSize(60, 40));
    EXPECT_EQ(image.pixelColor(10, 20), QColor("#1a6ef0"));
    EXPECT_EQ(image.pixelColor(50, 20).alpha(), 0);
}

TEST(PictureDrawing, DrawsWhatALightPageShows) {
    const QByteArray png =
        pngOf("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"4\" height=\"4\">"
              "<style>@media (prefers-color-scheme: dark){.f-window{fill:#1e1e20}}</style>"
              "<rect width=\"4\" height=\"4\" class=\"f-window\" fill=\"#f4f4f6\"/></svg>");
    EXPECT_EQ(QImage::fromData(png, "PNG").pixelColor(4, 4), QColor("#f4f4f6"));
}

TEST(PictureDrawing, DrawsNothingOfWhatIsNoPicture) {
    EXPECT_TRUE(pngOf("").isEmpty());
    EXPECT_TRUE(pngOf("<html/>").isEmpty());
    EXPECT_TRUE(pngOf("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"999999\" "
                      "height=\"999999\"/>")
                    .isEmpty());
}
