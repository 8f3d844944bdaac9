#pragma once

#include "TervaleWindow/Appearance/Colors.h"

#include <QPainter>
#include <QRectF>

namespace tervale {

/// A slider's parts in the coordinates of the widget that `bounds` came from.
struct SliderLayout {
    QRectF groove;
    /// The part of the groove from its leading end to the knob.
    QRectF filled;
    QRectF knob;

    bool operator==(const SliderLayout&) const = default;
};

inline constexpr qreal sliderKnob = 20;
/// Around the knob, for its shadow and the focus ring.
inline constexpr qreal sliderMargin = 3;

SliderLayout sliderLayout(const QRectF& bounds, double fraction, Qt::LayoutDirection direction);
/// The fraction, 0 to 1, at which the knob's middle stands at `x`.
double sliderFraction(const QRectF& bounds, qreal x, Qt::LayoutDirection direction);

enum class KnobRing { none, shown };
void paintSlider(QPainter& painter, const SliderLayout& layout, const Colors& colors,
                 KnobRing ring);

} // namespace tervale
