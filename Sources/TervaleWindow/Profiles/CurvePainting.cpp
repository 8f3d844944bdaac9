#include "TervaleWindow/Profiles/CurvePainting.h"

#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Appearance/Fonts.h"
#include "TervaleWindow/Appearance/TabularText.h"
#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Style/FocusRing.h"

#include <QLinearGradient>
#include <QPainterPath>

#include <cmath>

namespace tervale {

namespace {

constexpr qreal cornerRadius = 10;
constexpr qreal gridOpacity = 0.25;
constexpr qreal areaOpacity = 0.22;
constexpr qreal lineWidth = 2.5;
constexpr qreal ringWidth = 2.5;
constexpr qreal markerWidth = 1.5;
constexpr qreal dashOn = 4;
constexpr qreal dashOff = 3;
constexpr qreal focusGap = 2;
constexpr qreal hoverGap = 4;
constexpr qreal hoverWidth = 1.5;

QPointF toPointF(const PlotPoint& point) {
    return {point.x, point.y};
}

QBrush shading(const CurveDrawing& drawing) {
    if (drawing.load)
        return Theme::accent();
    QLinearGradient gradient(drawing.plot.left, 0, drawing.plot.right(), 0);
    gradient.setStops(Theme::thermalGradient(drawing.range));
    return gradient;
}

QColor knotColor(const CurveDrawing& drawing, double x) {
    return drawing.load ? Theme::accent() : Theme::thermal(x);
}

void paintGround(QPainter& painter, const QRectF& bounds, const Colors& colors) {
    painter.setPen(QPen(colors.line, 1));
    painter.setBrush(colors.plot);
    painter.drawRoundedRect(bounds.adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
}

/// The line one logical pixel wide that lies nearest, covering whole pixels of the device.
qreal aligned(const QPainter& painter, qreal y) {
    const qreal scale = painter.device()->devicePixelRatioF();
    return std::round(y * scale - scale / 2) / scale + 0.5;
}

void paintLabel(QPainter& painter, const CurveDrawing::Label& label, const QFont& font) {
    const QRectF room(label.middle.x - 40, label.middle.y - 10, 80, 20);
    paintTabularText(painter, room, Qt::AlignCenter, font, QString::fromStdString(label.text));
}

void paintAxes(QPainter& painter, const CurveDrawing& drawing, const Colors& colors) {
    QColor gridColor = colors.secondary;
    gridColor.setAlphaF(gridColor.alphaF() * static_cast<float>(gridOpacity));
    painter.setPen(QPen(gridColor, 1, Qt::SolidLine, Qt::FlatCap));
    for (const double y : drawing.grid) {
        const qreal height = aligned(painter, y);
        painter.drawLine(QPointF(drawing.plot.left, height), QPointF(drawing.plot.right(), height));
    }
    const QFont font = systemFont(fontSize::caption2);
    painter.setPen(colors.secondary);
    for (const CurveDrawing::Label& label : drawing.speeds)
        paintLabel(painter, label, font);
    for (const CurveDrawing::Label& label : drawing.units)
        paintLabel(painter, label, font);
}

void paintLine(QPainter& painter, const CurveDrawing& drawing) {
    if (drawing.line.empty())
        return;
    QPainterPath path(toPointF(drawing.line.front()));
    for (const PlotPoint& point : drawing.line)
        path.lineTo(toPointF(point));
    QPainterPath area = path;
    area.lineTo(drawing.plot.right(), drawing.plot.bottom());
    area.lineTo(drawing.plot.left, drawing.plot.bottom());
    area.closeSubpath();
    const QBrush brush = shading(drawing);
    painter.setOpacity(areaOpacity);
    painter.fillPath(area, brush);
    painter.setOpacity(1);
    QPen pen(brush, lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::SvgMiterJoin);
    pen.setMiterLimit(10);
    painter.strokePath(path, pen);
}

void paintMarker(QPainter& painter, const CurveDrawing& drawing, const QRectF& bounds,
                 const Colors& colors) {
    if (!drawing.marker)
        return;
    const CurveDrawing::Marker& marker = *drawing.marker;
    const QColor color = drawing.load ? colors.secondary : Theme::thermal(marker.value);
    QPen pen(color, markerWidth, Qt::SolidLine, Qt::FlatCap);
    pen.setDashPattern({dashOn / markerWidth, dashOff / markerWidth});
    painter.setPen(pen);
    painter.drawLine(QPointF(marker.x, drawing.plot.top), QPointF(marker.x, drawing.plot.bottom()));
    const QFont font = systemFont(fontSize::caption, QFont::DemiBold);
    const QString text = QString::fromStdString(marker.text);
    const qreal width = std::ceil(tabularTextWidth(font, text));
    QRectF room(marker.leading.x, marker.leading.y - 10, width, 20);
    // A hot reading's label would leave the canvas; it changes to the other side of its line, as
    // long as that is there itself.
    if (room.right() > bounds.right() - 2 && marker.x <= bounds.right())
        room.moveRight(2 * marker.x - marker.leading.x);
    painter.setPen(drawing.load ? color : colors.figure(marker.value));
    paintTabularText(painter, room, Qt::AlignLeft | Qt::AlignVCenter, font, text);
}

void paintKnots(QPainter& painter, const CurveDrawing& drawing, const Colors& colors,
                KeyFocus focus) {
    for (const CurveDrawing::Knot& knot : drawing.knots) {
        const QPointF middle = toPointF(knot.middle);
        if (knot.chosen && focus == KeyFocus::present) {
            const qreal reach = knot.radius + focusGap;
            const QRectF shape(middle - QPointF(reach, reach), QSizeF(2 * reach, 2 * reach));
            paintFocusRing(painter, shape, reach, colors);
        } else if (knot.hovered) {
            const qreal reach = knot.radius + hoverGap;
            painter.setPen(QPen(knotColor(drawing, knot.x), hoverWidth));
            painter.setBrush(Qt::NoBrush);
            painter.drawEllipse(middle, reach, reach);
        }
        painter.setPen(QPen(knotColor(drawing, knot.x), ringWidth));
        painter.setBrush(Qt::white);
        painter.drawEllipse(middle, knot.radius, knot.radius);
    }
}

} // namespace

void paintCurve(QPainter& painter, const CurveDrawing& drawing, const QRectF& bounds,
                const QPalette& palette, KeyFocus focus) {
    const Colors colors = Colors::of(palette);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    // A place on the plot means the same in every direction of writing.
    painter.setLayoutDirection(Qt::LeftToRight);
    paintGround(painter, bounds, colors);
    paintAxes(painter, drawing, colors);
    paintLine(painter, drawing);
    paintMarker(painter, drawing, bounds, colors);
    paintKnots(painter, drawing, colors, focus);
    painter.restore();
}

} // namespace tervale
