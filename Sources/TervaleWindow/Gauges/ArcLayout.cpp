#include "TervaleWindow/Gauges/ArcLayout.h"

#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Gauges/GaugeMath.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tervale {

namespace {

/// Degrees anticlockwise from the right: the lower left, where the arc begins.
constexpr double startAngle = 225;

QRectF circle(const ArcLayout& layout) {
    return QRectF(layout.center.x() - layout.radius, layout.center.y() - layout.radius,
                  layout.radius * 2, layout.radius * 2);
}

QPainterPath arc(const ArcLayout& layout, double fromSweep, double toSweep) {
    QPainterPath path;
    path.arcMoveTo(circle(layout), startAngle - fromSweep);
    path.arcTo(circle(layout), startAngle - fromSweep, fromSweep - toSweep);
    return path;
}

QPen roundPen(const QBrush& brush) {
    return QPen(brush, ArcLayout::lineWidth, Qt::SolidLine, Qt::RoundCap);
}

QBrush fillBrush(const QRectF& square) {
    const QColor accent = Theme::accent();
    const auto lightened = [](float component) { return component + 0.25f * (1 - component); };
    QLinearGradient gradient(square.bottomLeft(), square.topLeft());
    gradient.setColorAt(0, QColor::fromRgbF(lightened(accent.redF()), lightened(accent.greenF()),
                                            lightened(accent.blueF())));
    gradient.setColorAt(1, accent);
    return gradient;
}

// The painter's angles run clockwise, y being downwards.
QTransform tickTransform(const ArcLayout& layout, double tick) {
    return QTransform()
        .translate(layout.center.x(), layout.center.y())
        .rotate(-tickAngle(tick))
        .translate(-layout.center.x(), -layout.center.y());
}

QRect tickBounds(const ArcLayout& layout, double tick) {
    if (std::isnan(tick))
        return {};
    return tickTransform(layout, tick).mapRect(layout.tick).adjusted(-1, -1, 1, 1).toAlignedRect();
}

} // namespace

ArcLayout arcLayout(const QRectF& square) {
    const double inset = ArcLayout::lineWidth / 2;
    const QRectF inner = square.adjusted(inset, inset, -inset, -inset);
    const double radius = inner.width() / 2;
    return {.square = square,
            .center = inner.center(),
            .radius = radius,
            .tick = QRectF(inner.center().x() - ArcLayout::tickWidth / 2,
                           inner.center().y() - radius - ArcLayout::tickHeight / 2,
                           ArcLayout::tickWidth, ArcLayout::tickHeight)};
}

QRegion arcRegion(const ArcLayout& layout, const ArcState& from, const ArcState& to) {
    QRegion region;
    const double fromSweep = arcSweep(from.fill);
    const double toSweep = arcSweep(to.fill);
    if (fromSweep != toSweep) {
        const double reach = ArcLayout::lineWidth / 2 + 1;
        region += arc(layout, fromSweep, toSweep)
                      .boundingRect()
                      .adjusted(-reach, -reach, reach, reach)
                      .toAlignedRect();
    }
    const QRect fromTick = tickBounds(layout, from.tick);
    const QRect toTick = tickBounds(layout, to.tick);
    if (from.tick != to.tick)
        region = region.united(fromTick).united(toTick);
    return region;
}

double arcDistance(const ArcLayout& layout, const ArcState& from, const ArcState& to) {
    const auto way = [](double first, double second, double radius) {
        const double angle = std::abs(second - first) * std::numbers::pi / 180;
        return std::isfinite(angle) ? angle * radius : 0;
    };
    return std::max(
        way(arcSweep(from.fill), arcSweep(to.fill), layout.radius + ArcLayout::lineWidth / 2),
        way(tickAngle(from.tick), tickAngle(to.tick), layout.radius + ArcLayout::tickHeight / 2));
}

void paintArc(QPainter& painter, const ArcLayout& layout, const ArcState& state,
              const Colors& colors) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.strokePath(arc(layout, 0, arcSweep(1)), roundPen(colors.quaternary));
    // An empty arc is no dot, although a round cap would make it one.
    if (const double sweep = arcSweep(state.fill); sweep > 0)
        painter.strokePath(arc(layout, 0, sweep), roundPen(fillBrush(layout.square)));
    if (!std::isnan(state.tick)) {
        QColor color = colors.label;
        color.setAlphaF(0.7f);
        painter.setTransform(tickTransform(layout, state.tick), true);
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawRoundedRect(layout.tick, ArcLayout::tickWidth / 2, ArcLayout::tickWidth / 2);
    }
    painter.restore();
}

} // namespace tervale
