#pragma once

#include "TervaleWindow/Appearance/Colors.h"

#include <QPainter>
#include <QRectF>
#include <QStyle>

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
/// Where the toolkit takes hold of the knob, or of the groove beside it.
QRect sliderPart(const SliderLayout& layout, QStyle::SubControl part);

enum class KnobRing { none, shown };
void paintSlider(QPainter& painter, const SliderLayout& layout, const Colors& colors,
                 KnobRing ring);

} // namespace tervale
