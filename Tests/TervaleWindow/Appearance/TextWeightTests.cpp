#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Appearance/Fonts.h"

#include <QFontDatabase>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include <gtest/gtest.h>

using namespace tervale;

namespace {

const QString sentence = "CPU and GPU show the core average; other groups their hottest sensor";

/// How many logical pixels are covered, half covered ones as halves, where `draw` draws in the
/// label's colour of a palette.
template <class Draw>
double ink(const QPalette& palette, int scale, const Draw& draw) {
    const Colors colors = Colors::of(palette);
    QImage image(QSize(1600, 60) * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(colors.card);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    draw(painter, colors.label);
    painter.end();
    const double span = colors.label.green() - colors.card.green();
    double covered = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            covered += (image.pixelColor(x, y).green() - colors.card.green()) / span;
    }
    return covered / (scale * scale);
}

double inkOfText(const QFont& font, const QPalette& palette) {
    return ink(palette, 2, [&font](QPainter& painter, const QColor& color) {
        painter.setFont(font);
        painter.setPen(color);
        painter.drawText(QPointF(10, 40), sentence);
    });
}

/// Of the letters' outlines, which nothing emboldens.
double inkOfOutlines(const QFont& font) {
    QFont large = font;
    constexpr int times = 8;
    large.setPixelSize(font.pixelSize() * times);
    QPainterPath path;
    path.addText(QPointF(10, 40) * times, large, sentence);
    return ink(lightPalette(), 4, [&path](QPainter& painter, const QColor& color) {
        painter.scale(1.0 / times, 1.0 / times);
        painter.fillPath(path, color);
    });
}

} // namespace

class TextWeight : public testing::TestWithParam<std::tuple<int, QFont::Weight>> {};

TEST_P(TextWeight, IsThatOfTheLettersOutlines) {
    if (!QFontDatabase::hasFamily("Inter"))
        GTEST_SKIP() << "another font, which is drawn in its own way";
    const auto [size, weight] = GetParam();
    const QFont font = systemFont(size, weight);
    const double light = inkOfText(font, lightPalette());
    const double dark = inkOfText(font, darkPalette());
    const double drawn = inkOfOutlines(font);
    // The toolkit blends such fonts so that dark text comes out thinner, and light text thicker.
    EXPECT_NEAR((light + dark) / 2 / drawn, 1, 0.06);
    EXPECT_NEAR(light / drawn, 1, 0.15);
    EXPECT_NEAR(dark / drawn, 1, 0.15);
}

INSTANTIATE_TEST_SUITE_P(Fonts, TextWeight,
                         testing::Combine(testing::Values(fontSize::caption, fontSize::body, 28),
                                          testing::Values(QFont::Normal, QFont::Bold)));
