#include "TervaleWindow/Gauges/BarLayerView.h"

#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Gauges/GaugeMath.h"

#include <QLinearGradient>

#include <algorithm>
#include <cmath>

namespace tervale {

namespace {

QBrush thermalBrush(const QRectF& bounds) {
    static const QGradientStops stops = Theme::thermalGradient(thermalBarRange);
    QLinearGradient gradient(bounds.topLeft(), bounds.topRight());
    gradient.setStops(stops);
    return gradient;
}

} // namespace

void paintBar(QPainter& painter, const QRectF& bounds, double lit, const Colors& colors) {
    const double radius = bounds.height() / 2;
    QRectF litBounds = bounds;
    litBounds.setWidth(std::min(lit, bounds.width()));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colors.quaternary);
    painter.drawRoundedRect(bounds, radius, radius);
    painter.setBrush(thermalBrush(bounds));
    painter.drawRoundedRect(litBounds, radius, radius);
    painter.restore();
}

BarLayerView::BarLayerView(QWidget* parent) : QWidget(parent), animation(*this) {
    connect(&animation, &GaugeAnimation::advanced, this, &BarLayerView::advance);
}

void BarLayerView::setFraction(double fraction) {
    if (fraction == lastFraction)
        return;
    lastFraction = fraction;
    lengthTransition = {length, targetLength()};
    animation.begin(lengthTransition.distance());
}

double BarLayerView::targetLength() const {
    return litLength(lastFraction, width(), height());
}

void BarLayerView::advance() {
    const double next = lengthTransition.at(animation.progress());
    const auto [shorter, longer] = std::minmax(length, next);
    // The round end reaches back by half of the height.
    const int left = static_cast<int>(std::floor(shorter)) - height() / 2 - 1;
    const int right = static_cast<int>(std::ceil(longer)) + 1;
    const bool changed = next != length;
    length = next;
    if (changed)
        update(left, 0, right - left, height());
}

void BarLayerView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintBar(painter, rect(), length, Colors::of(palette()));
}

void BarLayerView::resizeEvent(QResizeEvent* event) {
    animation.stop();
    length = targetLength();
    lengthTransition = {length, length};
    QWidget::resizeEvent(event);
}

void BarLayerView::hideEvent(QHideEvent* event) {
    animation.finish();
    QWidget::hideEvent(event);
}

} // namespace tervale
