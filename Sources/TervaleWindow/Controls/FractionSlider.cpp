#include "TervaleWindow/Controls/FractionSlider.h"

#include "Base/Precondition.h"
#include "TervaleWindow/Style/SliderPainting.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <optional>

namespace tervale {

namespace {

using Source = SliderGesture::Source;

constexpr double arrowStep = 0.01;
constexpr double pageStepFraction = 0.1;
constexpr int wheelNotch = 120;

/// Where a key takes the slider, or nothing if the key is none of its.
std::optional<double> destination(int key, double from, Qt::LayoutDirection direction) {
    const double towardsRight = direction == Qt::RightToLeft ? -arrowStep : arrowStep;
    switch (key) {
    case Qt::Key_Right:
        return from + towardsRight;
    case Qt::Key_Left:
        return from - towardsRight;
    case Qt::Key_Up:
        return from + arrowStep;
    case Qt::Key_Down:
        return from - arrowStep;
    case Qt::Key_PageUp:
        return from + pageStepFraction;
    case Qt::Key_PageDown:
        return from - pageStepFraction;
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return 1;
    default:
        return std::nullopt;
    }
}

} // namespace

FractionSlider::FractionSlider(QWidget* parent) : QSlider(Qt::Horizontal, parent) {
    setRange(0, resolution);
    setSingleStep(resolution / 100);
    setPageStep(resolution / 10);
    // Not by the wheel: whoever scrolls past must not take hold of it.
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    wheelTimer.setSingleShot(true);
    setWheelPause(std::chrono::milliseconds(300));
    connect(&wheelTimer, &QTimer::timeout, this, [this] { report(gesture.end(Source::wheel)); });
}

double FractionSlider::fraction() const {
    return shown;
}

void FractionSlider::setFraction(double fraction) {
    precondition(!std::isnan(fraction), "a slider's fraction is a number");
    show(std::clamp(fraction, 0.0, 1.0));
}

bool FractionSlider::isEditing() const {
    return gesture.isActive();
}

void FractionSlider::setWheelPause(std::chrono::milliseconds pause) {
    wheelTimer.setInterval(pause);
}

void FractionSlider::moveAtOnce(double fraction) {
    endEveryGesture();
    report(gesture.begin(Source::keyboard));
    move(fraction);
    report(gesture.end(Source::keyboard));
}

QSize FractionSlider::sizeHint() const {
    return {160, minimumSizeHint().height()};
}

QSize FractionSlider::minimumSizeHint() const {
    return {60, static_cast<int>(sliderKnob + 2 * sliderMargin)};
}

void FractionSlider::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    const SliderLayout layout = sliderLayout(rect(), shown, layoutDirection());
    const bool onKnob = layout.knob.contains(event->position());
    grip = onKnob ? event->position().x() - layout.knob.center().x() : 0;
    report(gesture.begin(Source::pointer));
    if (!onKnob)
        move(sliderFraction(rect(), event->position().x(), layoutDirection()));
}

void FractionSlider::mouseMoveEvent(QMouseEvent* event) {
    if (gesture.isHeldBy(Source::pointer))
        move(sliderFraction(rect(), event->position().x() - grip, layoutDirection()));
    else
        event->ignore();
}

void FractionSlider::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        report(gesture.end(Source::pointer));
    else
        event->ignore();
}

void FractionSlider::keyPressEvent(QKeyEvent* event) {
    const bool plain = (event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) == 0;
    const std::optional<double> target = destination(event->key(), shown, layoutDirection());
    if (!plain || !target) {
        event->ignore();
        return;
    }
    heldKeys.insert(event->key());
    report(gesture.begin(Source::keyboard));
    move(*target);
}

void FractionSlider::keyReleaseEvent(QKeyEvent* event) {
    // Some systems send a release between the repeats of a key that is held down.
    if (event->isAutoRepeat() || !heldKeys.remove(event->key())) {
        event->ignore();
        return;
    }
    if (heldKeys.isEmpty())
        report(gesture.end(Source::keyboard));
}

void FractionSlider::wheelEvent(QWheelEvent* event) {
    const int turn = event->inverted() ? -event->angleDelta().y() : event->angleDelta().y();
    if (!hasFocus() || turn == 0) {
        event->ignore();
        return;
    }
    report(gesture.begin(Source::wheel));
    // What is finer than a step of the slider must not be lost: touch pads send little at a time.
    const double steps = wheelRest + turn * arrowStep * resolution / wheelNotch;
    const double whole = std::trunc(steps);
    wheelRest = steps - whole;
    move(shown + whole / resolution);
    wheelTimer.start();
    event->accept();
}

void FractionSlider::focusOutEvent(QFocusEvent* event) {
    heldKeys.clear();
    report(gesture.end(Source::keyboard));
    QSlider::focusOutEvent(event);
}

void FractionSlider::hideEvent(QHideEvent* event) {
    endEveryGesture();
    QSlider::hideEvent(event);
}

void FractionSlider::changeEvent(QEvent* event) {
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        endEveryGesture();
    QSlider::changeEvent(event);
}

void FractionSlider::report(const SliderGesture::Reports& reports) {
    for (const SliderGesture::Report report : reports) {
        if (report == SliderGesture::Report::ended)
            wheelRest = 0;
        emit editingChanged(report == SliderGesture::Report::began);
    }
}

void FractionSlider::endEveryGesture() {
    heldKeys.clear();
    wheelTimer.stop();
    report(gesture.endAny());
}

void FractionSlider::show(double fraction) {
    shown = fraction;
    setValue(static_cast<int>(std::lround(fraction * resolution)));
}

void FractionSlider::move(double fraction) {
    // Steps add up without drifting away from the slider's own grid.
    const double target = std::round(std::clamp(fraction, 0.0, 1.0) * resolution) / resolution;
    if (std::equal_to<>()(target, shown))
        return;
    show(target);
    emit fractionChanged(shown);
}

} // namespace tervale
