#pragma once

#include "TervaleWindow/Appearance/Colors.h"

#include <QPainter>
#include <QRectF>
#include <QRegion>
#include <QString>

namespace tervale {

/// What a fan's dial writes.
struct FanDialTexts {
    QString number;
    QString minimum;
    QString maximum;
    QString capsule;
    /// The capsule in the accent colour: the fan is under manual control.
    bool manual = false;

    bool operator==(const FanDialTexts&) const = default;
};

/// Sizes of its texts, in logical pixels.
struct FanDialMetrics {
    double numberHeight = 0;
    double unitHeight = 0;
    double captionHeight = 0;
    double capsuleTextWidth = 0;
};

/// Where a fan's dial has its parts. The figures may be wider than their rectangles.
struct FanDialLayout {
    static constexpr int side = 190;
    /// Below the square: the block's margin that the capsule lies over, and the dial's own.
    static constexpr int blockMargin = 12;
    static constexpr int bottomMargin = 22;

    QRectF square;
    QRectF symbol;
    QRectF number;
    QRectF unit;
    /// The row of the fan's limits.
    QRectF limits;
    QRectF capsule;
};

FanDialMetrics fanDialMetrics(const FanDialTexts& texts);
/// `square` is the arc's.
FanDialLayout fanDialLayout(const QRectF& square, const FanDialMetrics& metrics);
/// Everything but the arc, as far as it lies within `exposed`.
void paintFanDial(QPainter& painter, const FanDialLayout& layout, const FanDialTexts& texts,
                  const Colors& colors, const QRegion& exposed);

} // namespace tervale
