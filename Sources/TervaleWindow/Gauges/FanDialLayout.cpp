#include "TervaleWindow/Gauges/FanDialLayout.h"

#include "TervaleWindow/Appearance/Fonts.h"
#include "TervaleWindow/Appearance/Symbol.h"
#include "TervaleWindow/Appearance/TabularText.h"
#include "TervaleWindow/Appearance/Theme.h"

#include <QFontMetricsF>

namespace tervale {

namespace {

constexpr double symbolSide = 20;
constexpr double spacing = 2;
constexpr double limitsWidth = 150;
constexpr double limitsShift = 4;
constexpr double capsulePaddingX = 9;
constexpr double capsulePaddingY = 3;

QFont numberFont() {
    return roundedFont(40, QFont::DemiBold);
}
QFont unitFont() {
    return systemFont(fontSize::subheadline);
}
QFont captionFont() {
    return systemFont(fontSize::caption);
}

/// The next row of the stack, which moves `top` on to the one after.
QRectF stacked(const QRectF& square, double& top, double height) {
    const QRectF row(square.left(), top, square.width(), height);
    top += height + spacing;
    return row;
}

// Across the block's bottom edge and clear of the limits, which a long text would else cover.
QRectF capsuleBounds(const QRectF& limits, const FanDialMetrics& metrics) {
    const double width = metrics.capsuleTextWidth + 2 * capsulePaddingX;
    const double height = metrics.captionHeight + 2 * capsulePaddingY;
    return QRectF(limits.center().x() - width / 2, limits.bottom(), width, height);
}

void paintCapsule(QPainter& painter, const QRectF& bounds, const FanDialTexts& texts,
                  const Colors& colors) {
    QColor ground = colors.quaternary;
    if (texts.manual) {
        ground = Theme::accent();
        ground.setAlphaF(0.15f);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(bounds, bounds.height() / 2, bounds.height() / 2);
    painter.setPen(texts.manual ? colors.accentLabel : colors.secondary);
    paintTabularText(painter, bounds, Qt::AlignCenter, captionFont(), texts.capsule);
}

} // namespace

FanDialMetrics fanDialMetrics(const FanDialTexts& texts) {
    return {.numberHeight = QFontMetricsF(numberFont()).height(),
            .unitHeight = QFontMetricsF(unitFont()).height(),
            .captionHeight = QFontMetricsF(captionFont()).height(),
            .capsuleTextWidth = tabularTextWidth(captionFont(), texts.capsule)};
}

FanDialLayout fanDialLayout(const QRectF& square, const FanDialMetrics& metrics) {
    const double stackHeight =
        symbolSide + spacing + metrics.numberHeight + spacing + metrics.unitHeight;
    double top = square.center().y() - stackHeight / 2;
    FanDialLayout layout;
    layout.square = square;
    layout.symbol = stacked(square, top, symbolSide);
    layout.number = stacked(square, top, metrics.numberHeight);
    layout.unit = stacked(square, top, metrics.unitHeight);
    layout.limits = QRectF(square.center().x() - limitsWidth / 2,
                           square.bottom() - metrics.captionHeight + limitsShift, limitsWidth,
                           metrics.captionHeight);
    layout.capsule = capsuleBounds(layout.limits, metrics);
    return layout;
}

void paintFanDial(QPainter& painter, const FanDialLayout& layout, const FanDialTexts& texts,
                  const Colors& colors, const QRegion& exposed) {
    const auto isExposed = [&exposed](const QRectF& bounds) {
        return exposed.intersects(bounds.toAlignedRect());
    };
    painter.setRenderHint(QPainter::Antialiasing);
    if (isExposed(layout.symbol))
        paintSymbol(painter, Symbol::fan, layout.symbol, colors.secondary, symbolWeight::medium);
    painter.setPen(colors.label);
    if (isExposed(layout.number))
        paintTabularText(painter, layout.number, Qt::AlignCenter, numberFont(), texts.number);
    painter.setPen(colors.secondary);
    if (isExposed(layout.unit))
        paintTabularText(painter, layout.unit, Qt::AlignCenter, unitFont(), "rpm");
    if (isExposed(layout.limits)) {
        const Qt::Alignment middle = Qt::AlignVCenter;
        paintTabularText(painter, layout.limits, middle | Qt::AlignLeft, captionFont(),
                         texts.minimum);
        paintTabularText(painter, layout.limits, middle | Qt::AlignRight, captionFont(),
                         texts.maximum);
    }
    if (isExposed(layout.capsule))
        paintCapsule(painter, layout.capsule, texts, colors);
}

} // namespace tervale
