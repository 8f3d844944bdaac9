#pragma once

#include "TervaleWindow/Appearance/Colors.h"

#include <QPainter>
#include <QRectF>
#include <QRegion>

namespace tervale {

/// What a dial's arc shows, each from 0 to 1 along it. NaN shows nothing.
struct ArcState {
    double fill = 0;
    double tick = 0;

    bool operator==(const ArcState&) const = default;
};

/// Where a dial's arc lies within its square: 270 degrees, open at the bottom.
struct ArcLayout {
    static constexpr double lineWidth = 14;
    static constexpr double tickWidth = 3;
    static constexpr double tickHeight = 22;
    /// How far the tick reaches out of the square at the top and the sides.
    static constexpr int overhang = 4;

    QRectF square;
    QPointF center;
    double radius = 0;
    /// The tick before its rotation about `center`, upright at the top of the circle.
    QRectF tick;
};

ArcLayout arcLayout(const QRectF& square);

/// What has to be painted again when one state gives way to another.
QRegion arcRegion(const ArcLayout& layout, const ArcState& from, const ArcState& to);

/// The longest way that any of its pixels goes from one state to another, in logical pixels. What
/// is not a number goes no way.
double arcDistance(const ArcLayout& layout, const ArcState& from, const ArcState& to);

void paintArc(QPainter& painter, const ArcLayout& layout, const ArcState& state,
              const Colors& colors);

} // namespace tervale
