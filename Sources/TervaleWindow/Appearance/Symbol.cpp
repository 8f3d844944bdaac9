#include "TervaleWindow/Appearance/Symbol.h"

#include "TervaleWindow/Appearance/SymbolShape.h"

#include <QIconEngine>
#include <QPixmap>
#include <QPixmapCache>
#include <QtMath>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tervale {

namespace {

/// In logical pixels. Small symbols share one width, so that they match beside one another; large
/// ones grow heavier with their size.
qreal lineWidth(qreal side, qreal weight) {
    return std::max(1.25, side * 0.055) * weight;
}

/// In pixels of a device; nothing is drawn larger.
constexpr qreal largestSide = 4096;

struct Drawing {
    Symbol symbol;
    QColor color;
    qreal weight;
};

class SymbolEngine : public QIconEngine {
  public:
    explicit SymbolEngine(const Drawing& content) : drawing(content) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        QColor shade = drawing.color;
        if (mode == QIcon::Disabled)
            shade.setAlphaF(shade.alphaF() * 0.4f);
        paintSymbol(*painter, drawing.symbol, rect, shade, drawing.weight);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return scaledPixmap(size, mode, state, 1);
    }

    // `size` is in pixels of the device; painting in logical ones keeps the lines' width.
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state,
                         qreal scale) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.scale(scale, scale);
        paint(&painter, QRectF(QPointF(), QSizeF(size) / scale).toRect(), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new SymbolEngine(*this); }

  private:
    Drawing drawing;
};

SymbolShapes& systemShapes() {
    static SymbolShapes shapes;
    return shapes;
}

/// Where the symbol's square lies on the painter's device.
struct Place {
    /// The pixels that it touches.
    QRect pixels;
    /// The square, seen from their corner.
    QRectF square;
    qreal lineWidth;
};

Place placeOf(const QRectF& square, qreal lineWidth) {
    const QPoint corner(qFloor(square.left()), qFloor(square.top()));
    const QSize size(qCeil(square.right()) - corner.x(), qCeil(square.bottom()) - corner.y());
    return {{corner, size}, square.translated(-corner), lineWidth};
}

QImage tinted(QImage shape, const QColor& color) {
    shape.convertTo(QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&shape);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(shape.rect(), color);
    painter.end();
    return shape;
}

/// The system's shape, moved to whole pixels, so that it stays as sharp as it is.
std::optional<QImage> systemShape(Symbol symbol, const Place& place, qreal weight) {
    if (!systemShapes())
        return std::nullopt;
    const int side = std::max(1, qRound(place.square.width()));
    const auto shape = systemShapes()(symbolName(symbol), side, weight);
    if (!shape)
        return std::nullopt;
    QImage image(place.pixels.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.drawImage(place.square.topLeft().toPoint(), *shape);
    painter.end();
    return image;
}

/// The coloured symbol on the pixels that it touches. Kept, since the same few are drawn again and
/// again.
QPixmap picture(const Drawing& drawing, const Place& place) {
    const QString key = QStringLiteral("tervale %1 %2 %3 %4 %5 %6")
                            .arg(static_cast<int>(drawing.symbol))
                            .arg(drawing.color.rgba())
                            .arg(place.square.x())
                            .arg(place.square.y())
                            .arg(place.square.width())
                            .arg(place.lineWidth);
    QPixmap kept;
    if (QPixmapCache::find(key, &kept))
        return kept;
    QImage shape = systemShape(drawing.symbol, place, drawing.weight).value_or(QImage());
    if (shape.isNull())
        shape = symbolShape(drawing.symbol, place.pixels.size(), place.square,
                            place.lineWidth * symbolBox / place.square.width());
    kept = QPixmap::fromImage(tinted(std::move(shape), drawing.color));
    QPixmapCache::insert(key, kept);
    return kept;
}

} // namespace

QString symbolName(Symbol symbol) {
    switch (symbol) {
    case Symbol::fan:
        return "fan";
    case Symbol::fanSlash:
        return "fan.slash";
    case Symbol::fanFill:
        return "fan.fill";
    case Symbol::thermometerMedium:
        return "thermometer.medium";
    case Symbol::sliderHorizontal3:
        return "slider.horizontal.3";
    case Symbol::gearshape:
        return "gearshape";
    case Symbol::cpu:
        return "cpu";
    case Symbol::exclamationTriangle:
        return "exclamationmark.triangle";
    case Symbol::exclamationTriangleFill:
        return "exclamationmark.triangle.fill";
    case Symbol::timer:
        return "timer";
    case Symbol::magnifyingGlass:
        return "magnifyingglass";
    case Symbol::plus:
        return "plus";
    case Symbol::plusSquareOnSquare:
        return "plus.square.on.square";
    case Symbol::minus:
        return "minus";
    case Symbol::minusCircle:
        return "minus.circle";
    case Symbol::questionmarkCircle:
        return "questionmark.circle";
    case Symbol::chevronUpDown:
        return "chevron.up.chevron.down";
    }
    return {};
}

void useSymbolShapes(SymbolShapes shapes) {
    systemShapes() = std::move(shapes);
    QPixmapCache::clear();
}

void paintSymbol(QPainter& painter, Symbol symbol, const QRectF& bounds, const QColor& color,
                 qreal weight) {
    const qreal side = std::min(bounds.width(), bounds.height());
    if (!(side > 0))
        return;
    const QTransform& device = painter.deviceTransform();
    // Of a transformation, symbols follow the place and the size.
    const qreal scale = std::hypot(device.m11(), device.m12());
    QRectF square(0, 0, std::min(side * scale, largestSide), std::min(side * scale, largestSide));
    square.moveCenter(device.map(bounds.center()));
    if (square.isEmpty())
        return;
    const Place place = placeOf(square, lineWidth(side, weight) * square.width() / side);
    painter.save();
    // In the pixels of the device, whatever stands between them and the painter.
    painter.setWorldTransform(device.inverted() * painter.worldTransform());
    painter.drawPixmap(place.pixels.topLeft(), picture({symbol, color, weight}, place));
    painter.restore();
}

QIcon symbolIcon(Symbol symbol, const QColor& color, qreal weight) {
    return QIcon(new SymbolEngine({symbol, color, weight}));
}

} // namespace tervale
