#pragma once

#include "TervaleWindow/Controls/FractionSlider.h"

#include <QPoint>
#include <QStyle>
#include <QStyleOptionSlider>

namespace tervale {

/// The middle of a slider's knob where the application's style puts it for a fraction.
inline QPoint knobAt(const FractionSlider& slider, double fraction) {
    QStyleOptionSlider option;
    option.initFrom(&slider);
    option.orientation = Qt::Horizontal;
    option.maximum = FractionSlider::resolution;
    option.sliderPosition = static_cast<int>(fraction * FractionSlider::resolution);
    option.upsideDown = slider.isRightToLeft();
    option.direction = Qt::LeftToRight;
    return slider.style()
        ->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, &slider)
        .center();
}

} // namespace tervale
