#include "TervaleWindow/Appearance/Symbol.h"

#include "TervaleWindow/Appearance/SymbolPath.h"

#include <QIconEngine>
#include <QPixmap>
#include <QPixmapCache>

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

/// How many pixels of the painter's device lie along a side.
int pixels(const QPainter& painter, qreal side) {
    const QTransform& transform = painter.deviceTransform();
    const qreal scale = std::hypot(transform.m11(), transform.m12());
    return static_cast<int>(std::ceil(std::min(side * scale, 4096.0)));
}

/// The system's shape in a colour; kept, since the same few are drawn again and again.
std::optional<QPixmap> systemShape(Symbol symbol, int side, const QColor& color, qreal weight) {
    if (!systemShapes())
        return std::nullopt;
    const QString key = QStringLiteral("tervale symbol %1 %2 %3 %4")
                            .arg(symbolName(symbol))
                            .arg(side)
                            .arg(color.rgba())
                            .arg(weight);
    QPixmap shape;
    if (QPixmapCache::find(key, &shape))
        return shape;
    const auto opacity = systemShapes()(symbolName(symbol), side, weight);
    if (!opacity)
        return std::nullopt;
    QImage image = opacity->convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    painter.end();
    shape = QPixmap::fromImage(image);
    QPixmapCache::insert(key, shape);
    return shape;
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
    if (const auto shape = systemShape(symbol, pixels(painter, side), color, weight)) {
        painter.save();
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        const QPointF corner = bounds.center() - QPointF(side / 2, side / 2);
        painter.drawPixmap(QRectF(corner, QSizeF(side, side)), *shape, shape->rect());
        painter.restore();
        return;
    }
    const qreal scale = side / symbolBox;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(bounds.center() - QPointF(side / 2, side / 2));
    painter.scale(scale, scale);
    painter.fillPath(symbolPath(symbol, lineWidth(side, weight) / scale), color);
    painter.restore();
}

QIcon symbolIcon(Symbol symbol, const QColor& color, qreal weight) {
    return QIcon(new SymbolEngine({symbol, color, weight}));
}

} // namespace tervale
