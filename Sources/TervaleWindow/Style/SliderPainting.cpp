#include "TervaleWindow/Style/SliderPainting.h"

#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Style/ControlPainting.h"
#include "TervaleWindow/Style/FocusRing.h"

#include <algorithm>

namespace tervale {

namespace {

constexpr qreal grooveHeight = 4;

qreal firstCentre(const QRectF& bounds) {
    return bounds.left() + sliderMargin + sliderKnob / 2;
}

qreal travel(const QRectF& bounds) {
    return std::max(0.0, bounds.width() - 2 * sliderMargin - sliderKnob);
}

} // namespace

SliderLayout sliderLayout(const QRectF& bounds, double fraction, Qt::LayoutDirection direction) {
    const bool mirrored = direction == Qt::RightToLeft;
    const double fromLeft = mirrored ? 1 - fraction : fraction;
    const QPointF centre(firstCentre(bounds) + fromLeft * travel(bounds), bounds.center().y());
    SliderLayout layout;
    layout.knob =
        QRectF(centre.x() - sliderKnob / 2, centre.y() - sliderKnob / 2, sliderKnob, sliderKnob);
    layout.groove = QRectF(bounds.left() + sliderMargin, centre.y() - grooveHeight / 2,
                           bounds.width() - 2 * sliderMargin, grooveHeight);
    layout.filled = layout.groove;
    if (mirrored)
        layout.filled.setLeft(centre.x());
    else
        layout.filled.setRight(centre.x());
    return layout;
}

QRect sliderPart(const SliderLayout& layout, QStyle::SubControl part) {
    if (part == QStyle::SC_SliderHandle)
        return {layout.knob.topLeft().toPoint(), layout.knob.size().toSize()};
    // As high as the knob, so that a press beside the thin groove counts.
    if (part == QStyle::SC_SliderGroove)
        return QRectF(layout.groove.left(), layout.knob.top(), layout.groove.width(),
                      layout.knob.height())
            .toRect();
    return {};
}

void paintSlider(QPainter& painter, const SliderLayout& layout, const Colors& colors,
                 KnobRing ring) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const qreal radius = layout.groove.height() / 2;
    painter.setBrush(colors.quaternary);
    painter.drawRoundedRect(layout.groove, radius, radius);
    painter.setBrush(Theme::accent());
    painter.drawRoundedRect(layout.filled, radius, radius);
    paintKnob(painter, layout.knob);
    if (ring == KnobRing::shown)
        paintFocusRing(painter, layout.knob, layout.knob.height() / 2, colors);
}

} // namespace tervale
