#include "TervaleWindow/Style/ControlPainting.h"

#include "TervaleWindow/Appearance/Symbol.h"
#include "TervaleWindow/Appearance/Theme.h"

#include <QImage>
#include <QRadialGradient>

#include <cmath>

namespace tervale {

namespace {

QColor black(qreal alpha) {
    QColor color(Qt::black);
    color.setAlphaF(static_cast<float>(alpha));
    return color;
}

} // namespace

void paintBox(QPainter& painter, const QRectF& box, qreal radius, const QColor& fill,
              const QColor& line) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawRoundedRect(box, radius, radius);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(line, 1));
    painter.drawRoundedRect(box.adjusted(0.5, 0.5, -0.5, -0.5), radius - 0.5, radius - 0.5);
}

void paintControlBox(QPainter& painter, const QRectF& box, const Colors& colors) {
    paintBox(painter, box, controlRadius, colors.control, colors.controlLine);
}

void paintFaded(QPainter& painter, const QRect& bounds, Availability availability,
                const std::function<void(QPainter&)>& draw) {
    if (availability == Availability::available) {
        draw(painter);
        return;
    }
    // Shadows reach a little beyond a control.
    const QRect area = bounds.adjusted(-4, -4, 4, 4);
    const qreal scale = std::abs(painter.deviceTransform().m11());
    QImage layer((QSizeF(area.size()) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    layer.setDevicePixelRatio(scale);
    layer.fill(Qt::transparent);
    QPainter inner(&layer);
    inner.translate(-area.topLeft());
    inner.setFont(painter.font());
    draw(inner);
    inner.end();
    const qreal before = painter.opacity();
    painter.setOpacity(before * disabledOpacity);
    painter.drawImage(area.topLeft(), layer);
    painter.setOpacity(before);
}

QColor pressedShade(const Colors& colors) {
    QColor shade = colors.label;
    shade.setAlphaF(0.08f);
    return shade;
}

void paintKnob(QPainter& painter, const QRectF& disc) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const qreal radius = disc.width() / 2;
    const qreal reach = radius + 3;
    const QPointF below = disc.center() + QPointF(0, 1);
    QRadialGradient shadow(below, reach);
    shadow.setColorAt(0, black(0.25));
    shadow.setColorAt((radius - 2) / reach, black(0.22));
    shadow.setColorAt(radius / reach, black(0.12));
    shadow.setColorAt((radius + 1.5) / reach, black(0.03));
    shadow.setColorAt(1, black(0));
    painter.setBrush(shadow);
    painter.drawEllipse(below, reach, reach);
    painter.setBrush(black(0.15));
    painter.drawEllipse(disc.adjusted(-0.5, -0.5, 0.5, 0.5));
    painter.setBrush(Qt::white);
    painter.drawEllipse(disc);
}

void paintChevrons(QPainter& painter, const QRectF& square) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::accent());
    painter.drawRoundedRect(square, 4, 4);
    paintSymbol(painter, Symbol::chevronUpDown, square.adjusted(2, 2, -2, -2), Qt::white, 1.4);
}

} // namespace tervale
