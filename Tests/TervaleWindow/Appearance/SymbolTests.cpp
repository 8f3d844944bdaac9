#include "TervaleWindow/Appearance/Symbol.h"

#include <QImage>
#include <QSet>

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <vector>

using namespace tervale;

namespace {

constexpr std::array allSymbols{Symbol::fan,
                                Symbol::fanSlash,
                                Symbol::fanFill,
                                Symbol::thermometerMedium,
                                Symbol::sliderHorizontal3,
                                Symbol::gearshape,
                                Symbol::cpu,
                                Symbol::exclamationTriangle,
                                Symbol::exclamationTriangleFill,
                                Symbol::timer,
                                Symbol::magnifyingGlass,
                                Symbol::plus,
                                Symbol::plusSquareOnSquare,
                                Symbol::minus,
                                Symbol::minusCircle,
                                Symbol::questionmarkCircle,
                                Symbol::chevronUpDown};

QImage emptyImage(const QSize& size) {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

QImage painted(Symbol symbol, const QColor& color, qreal weight = 1.0) {
    QImage image = emptyImage({48, 48});
    QPainter painter(&image);
    paintSymbol(painter, symbol, image.rect(), color, weight);
    return image;
}

/// The sum of all alpha, in opaque pixels.
double ink(const QImage& image) {
    int sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            sum += qAlpha(image.pixel(x, y));
    }
    return sum / 255.0;
}

int largestAlpha(const QImage& image) {
    int largest = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            largest = std::max(largest, qAlpha(image.pixel(x, y)));
    }
    return largest;
}

int alphaAt(const QImage& image, QPointF place) {
    return qAlpha(image.pixel((place * 2).toPoint()));
}

} // namespace

TEST(Symbol, HasANameAndAPictureOfItsOwn) {
    QSet<QString> names;
    std::vector<QImage> pictures;
    for (const Symbol symbol : allSymbols) {
        names.insert(symbolName(symbol));
        const QImage picture = painted(symbol, Qt::black);
        EXPECT_GT(ink(picture), 40) << symbolName(symbol).toStdString();
        for (const QImage& other : pictures)
            EXPECT_NE(picture, other) << symbolName(symbol).toStdString();
        pictures.push_back(picture);
    }
    EXPECT_EQ(names.size(), static_cast<qsizetype>(allSymbols.size()));
    EXPECT_EQ(symbolName(Symbol::fanSlash), "fan.slash");
    EXPECT_EQ(symbolName(Symbol::chevronUpDown), "chevron.up.chevron.down");
}

TEST(Symbol, ShowsNoCrossingsInATranslucentColor) {
    for (const Symbol symbol : allSymbols)
        EXPECT_LE(largestAlpha(painted(symbol, QColor(0, 0, 0, 100))), 100)
            << symbolName(symbol).toStdString();
}

TEST(Symbol, IsCentredInASquareOfItsBounds) {
    QImage image = emptyImage({96, 48});
    QPainter painter(&image);
    paintSymbol(painter, Symbol::fan, image.rect(), Qt::black);
    painter.end();
    EXPECT_EQ(image.copy(24, 0, 48, 48), painted(Symbol::fan, Qt::black));
    EXPECT_EQ(ink(image.copy(0, 0, 24, 48)), 0);
}

TEST(Symbol, LeavesThePainterAsItWas) {
    QImage image = emptyImage({48, 48});
    QPainter painter(&image);
    const QTransform before = painter.transform();
    paintSymbol(painter, Symbol::gearshape, QRectF(3, 4, 20, 20), Qt::black);
    EXPECT_EQ(painter.transform(), before);
    EXPECT_FALSE(painter.testRenderHint(QPainter::Antialiasing));
}

TEST(Symbol, PaintsNothingWithoutRoom) {
    QImage image = emptyImage({48, 48});
    QPainter painter(&image);
    paintSymbol(painter, Symbol::fan, QRectF(10, 10, 0, 20), Qt::black);
    painter.end();
    EXPECT_EQ(ink(image), 0);
}

TEST(Symbol, GrowsHeavierWithItsWeight) {
    EXPECT_GT(ink(painted(Symbol::plus, Qt::black, 1.5)), ink(painted(Symbol::plus, Qt::black)));
}

TEST(Symbol, KeepsAGapBetweenTheSlashAndTheFan) {
    const QImage picture = painted(Symbol::fanSlash, Qt::black);
    EXPECT_EQ(alphaAt(picture, {12, 12}), 255);
    EXPECT_LT(alphaAt(picture, {13.1, 10.9}), 16);
    EXPECT_GT(alphaAt(painted(Symbol::fan, Qt::black), {13.1, 10.9}), 128);
}

TEST(Symbol, FillsTheFilledOnes) {
    EXPECT_GT(ink(painted(Symbol::fanFill, Qt::black)), ink(painted(Symbol::fan, Qt::black)) * 1.3);
    const QImage triangle = painted(Symbol::exclamationTriangleFill, Qt::black);
    EXPECT_EQ(alphaAt(triangle, {8, 17}), 255);
    EXPECT_EQ(alphaAt(triangle, {12, 12}), 0);
}

TEST(SymbolIcon, IsDrawnAnewForEachScale) {
    const QIcon icon = symbolIcon(Symbol::gearshape, Qt::black);
    const QPixmap doubled = icon.pixmap(QSize(16, 16), 2.0);
    EXPECT_EQ(doubled.size(), QSize(32, 32));
    QImage expected = emptyImage({32, 32});
    QPainter painter(&expected);
    painter.scale(2, 2);
    paintSymbol(painter, Symbol::gearshape, QRectF(0, 0, 16, 16), Qt::black);
    painter.end();
    QImage actual = doubled.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    actual.setDevicePixelRatio(1);
    EXPECT_EQ(actual, expected);
}

TEST(SymbolIcon, IsDimmedWhileDisabled) {
    const QIcon icon = symbolIcon(Symbol::plus, Qt::black);
    const QImage normal = icon.pixmap(QSize(24, 24), 1.0, QIcon::Normal).toImage();
    const QImage disabled = icon.pixmap(QSize(24, 24), 1.0, QIcon::Disabled).toImage();
    EXPECT_NEAR(ink(disabled), ink(normal) * 0.4, 1);
}

namespace {

/// The lower half of a square, for the fan alone.
std::optional<QImage> halfFan(const QString& name, int side, qreal) {
    if (name != "fan")
        return std::nullopt;
    QImage image({side, side}, QImage::Format_Alpha8);
    image.fill(0);
    QPainter painter(&image);
    painter.fillRect(0, side / 2, side, side / 2, Qt::black);
    return image;
}

class SystemShapes : public testing::Test {
  protected:
    ~SystemShapes() override { useSymbolShapes(nullptr); }

    int drawn = 0;
};

} // namespace

TEST_F(SystemShapes, StandInForTheDrawingInTheColourAskedFor) {
    useSymbolShapes(&halfFan);
    const QImage image = painted(Symbol::fan, QColor(200, 100, 50));
    EXPECT_EQ(image.pixelColor(24, 40), QColor(200, 100, 50));
    EXPECT_EQ(image.pixelColor(24, 8).alpha(), 0);
    EXPECT_EQ(ink(image), 48 * 24);
}

TEST_F(SystemShapes, AreAskedForInTheWeightOfTheSymbol) {
    std::vector<qreal> weights;
    useSymbolShapes([&weights](const QString& name, int side, qreal weight) {
        weights.push_back(weight);
        return halfFan(name, side, weight);
    });
    for (const qreal weight : {symbolWeight::regular, symbolWeight::medium, symbolWeight::semibold})
        painted(Symbol::fan, Qt::black, weight);
    EXPECT_EQ(weights, (std::vector<qreal>{symbolWeight::regular, symbolWeight::medium,
                                           symbolWeight::semibold}));
}

TEST_F(SystemShapes, LeaveTheDrawingToTheWindowWhereThereIsNone) {
    const QImage own = painted(Symbol::cpu, Qt::black);
    useSymbolShapes(&halfFan);
    EXPECT_EQ(painted(Symbol::cpu, Qt::black), own);
}

TEST_F(SystemShapes, AreAskedForInThePixelsOfTheDeviceAndOnceOnly) {
    int asked = 0;
    useSymbolShapes([&](const QString& name, int side, qreal weight) {
        ++drawn;
        asked = side;
        return halfFan(name, side, weight);
    });
    QImage image = emptyImage({96, 96});
    image.setDevicePixelRatio(2);
    QPainter painter(&image);
    for (int i = 0; i < 3; ++i)
        paintSymbol(painter, Symbol::fan, {4, 4, 20, 20}, Qt::black);
    painter.end();
    EXPECT_EQ(asked, 40);
    EXPECT_EQ(drawn, 1);
}
