#include "TervaleWindow/Controls/ToggleSwitch.h"

#include "TervaleWindow/Appearance/Motion.h"
#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Style/ControlPainting.h"
#include "TervaleWindow/Style/FocusRing.h"

#include <QStyle>

namespace tervale {

namespace {

constexpr QSize switchSize(38, 22);
constexpr qreal inset = 2;
constexpr int slideDuration = 150; // ms

QRectF knob(const QRectF& track, qreal position, Qt::LayoutDirection direction) {
    const qreal side = track.height() - 2 * inset;
    const qreal way = track.width() - 2 * inset - side;
    const qreal fromLeft = direction == Qt::RightToLeft ? 1 - position : position;
    return {track.left() + inset + fromLeft * way, track.top() + inset, side, side};
}

} // namespace

ToggleSwitch::ToggleSwitch(const QString& name, QWidget* parent) : QCheckBox(parent) {
    setAccessibleName(name);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    FocusRing::shared().surround(*this, switchSize.height() / 2);
    animation.setDuration(slideDuration);
    animation.setEasingCurve(QEasingCurve::InOutQuad);
    connect(&animation, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        position = value.toReal();
        update();
    });
    connect(this, &QAbstractButton::toggled, this, &ToggleSwitch::slide);
}

QSize ToggleSwitch::sizeHint() const {
    return switchSize;
}

QSize ToggleSwitch::minimumSizeHint() const {
    return switchSize;
}

// Instead of changing: whoever owns it answers with setChecked.
void ToggleSwitch::nextCheckState() {
    emit requested(!isChecked());
}

bool ToggleSwitch::hitButton(const QPoint& point) const {
    return rect().contains(point);
}

void ToggleSwitch::slide(bool on) {
    FocusRing::shared().setGround(*this, on ? RingGround::aroundAccent : RingGround::window);
    animation.stop();
    const qreal end = on ? 1 : 0;
    if (!isVisible() || reducedMotion() ||
        !style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this)) {
        position = end;
        update();
        return;
    }
    animation.setStartValue(position);
    animation.setEndValue(end);
    animation.start();
}

void ToggleSwitch::paintEvent(QPaintEvent*) {
    const Colors colors = Colors::of(palette());
    QPainter painter(this);
    QRectF track(QPointF(), switchSize);
    track.moveCenter(QRectF(rect()).center());
    const qreal radius = track.height() / 2;
    QColor accent = Theme::accent();
    accent.setAlphaF(static_cast<float>(position));
    paintFaded(painter, rect(), isEnabled() ? Availability::available : Availability::unavailable,
               [&](QPainter& layer) {
                   paintBox(layer, track, radius, colors.quaternary, colors.line);
                   paintBox(layer, track, radius, accent, Qt::transparent);
                   paintKnob(layer, knob(track, position, layoutDirection()));
                   if (isDown())
                       paintBox(layer, track, radius, pressedShade(colors), Qt::transparent);
               });
}

} // namespace tervale
