#include "TervaleWindow/Appearance/Fonts.h"
#include "TervaleWindow/Appearance/TabularText.h"

#include <QFontMetricsF>
#include <QImage>

#include <gtest/gtest.h>

using namespace tervale;

namespace {

QFont proportionalFont() {
    return systemFont(40, QFont::DemiBold);
}

qreal plainWidth(const QString& text) {
    return QFontMetricsF(proportionalFont()).horizontalAdvance(text);
}

QImage painted(Qt::Alignment alignment, const QString& text) {
    QImage image(300, 80, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setPen(Qt::black);
    paintTabularText(painter, image.rect(), alignment, proportionalFont(), text);
    return image;
}

/// The bounds of everything that is not white.
QRect inkBounds(const QImage& image) {
    QRect bounds;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qGray(image.pixel(x, y)) < 128)
                bounds |= QRect(x, y, 1, 1);
        }
    }
    return bounds;
}

/// The first column of the ink of the text's last glyph, found as the ink that `text` adds.
int startOfLastGlyph(const QString& text) {
    const QImage with = painted(Qt::AlignLeft | Qt::AlignVCenter, text);
    const QImage without = painted(Qt::AlignLeft | Qt::AlignVCenter, text.chopped(1));
    for (int x = 0; x < with.width(); ++x) {
        for (int y = 0; y < with.height(); ++y) {
            if (with.pixel(x, y) != without.pixel(x, y))
                return x;
        }
    }
    return -1;
}

} // namespace

TEST(TabularText, MeasuresEachFontForItself) {
    const QString text = "1234";
    const qreal small = tabularTextWidth(systemFont(10), text);
    const qreal large = tabularTextWidth(systemFont(40), text);
    const qreal heavy = tabularTextWidth(systemFont(40, QFont::Black), text);
    EXPECT_GT(large, small);
    EXPECT_NE(heavy, large);
    // The other way round, and again.
    EXPECT_EQ(tabularTextWidth(systemFont(40), text), large);
    EXPECT_EQ(tabularTextWidth(systemFont(10), text), small);
    EXPECT_EQ(tabularTextWidth(systemFont(40, QFont::Black), text), heavy);
}

TEST(TabularText, GivesEveryDigitTheWidthOfTheWidest) {
    qreal widest = 0;
    for (const QChar digit : QString("0123456789"))
        widest = std::max(widest, plainWidth(digit));
    for (const QString text : {"1111", "2893", "0000"})
        EXPECT_DOUBLE_EQ(tabularTextWidth(proportionalFont(), text), 4 * widest);
}

TEST(TabularText, LeavesOtherTextAsItIs) {
    for (const QString text : {"rpm", "Controlled by macOS", ""})
        EXPECT_DOUBLE_EQ(tabularTextWidth(proportionalFont(), text), plainWidth(text));
    EXPECT_DOUBLE_EQ(tabularTextWidth(proportionalFont(), "12 rpm"),
                     tabularTextWidth(proportionalFont(), "34") + plainWidth(" rpm"));
}

TEST(TabularText, KeepsWhatFollowsInItsPlaceWhileDigitsChange) {
    const int place = startOfLastGlyph("1,111:");
    EXPECT_GT(place, 0);
    EXPECT_EQ(startOfLastGlyph("2,893:"), place);
    EXPECT_EQ(startOfLastGlyph("4,074:"), place);
}

TEST(TabularText, LeavesDigitsOfOtherScriptsToTheTextEngine) {
    const QString arabicIndic = QString::fromUtf8("١٢٣٤");
    EXPECT_DOUBLE_EQ(tabularTextWidth(proportionalFont(), arabicIndic), plainWidth(arabicIndic));
    EXPECT_FALSE(inkBounds(painted(Qt::AlignCenter, arabicIndic)).isNull());
}

TEST(TabularText, AlignsWithinItsBounds) {
    const QRect left = inkBounds(painted(Qt::AlignLeft | Qt::AlignTop, "88"));
    const QRect middle = inkBounds(painted(Qt::AlignCenter, "88"));
    const QRect right = inkBounds(painted(Qt::AlignRight | Qt::AlignBottom, "88"));
    EXPECT_LT(left.left(), 8);
    EXPECT_NEAR(middle.center().x(), 150, 2);
    EXPECT_GT(right.right(), 292);
    EXPECT_LT(left.top(), middle.top());
    EXPECT_LT(middle.top(), right.top());
}

TEST(TabularText, PaintsInThePainterSPen) {
    QImage image(100, 60, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.setPen(Qt::red);
    paintTabularText(painter, image.rect(), Qt::AlignCenter, proportionalFont(), "8");
    painter.end();
    bool red = false;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            red = red || image.pixelColor(x, y) == QColor(Qt::red);
    }
    EXPECT_TRUE(red);
}
