#include "TervaleWindow/Controls/FractionSlider.h"

#include "Base/Precondition.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace tervale {

namespace {

using Source = SliderGesture::Source;

QMouseEvent moved(const QMouseEvent& event, const QPointF& distance) {
    return QMouseEvent(event.type(), event.position() - distance, event.scenePosition() - distance,
                       event.globalPosition() - distance, event.button(), event.buttons(),
                       event.modifiers());
}

int stepOf(double fraction) {
    return static_cast<int>(std::lround(fraction * FractionSlider::resolution));
}

} // namespace

FractionSlider::FractionSlider(QWidget* parent) : QSlider(Qt::Horizontal, parent) {
    setRange(0, resolution);
    setSingleStep(resolution / 100);
    setPageStep(resolution / 10);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(this, &QSlider::valueChanged, this, &FractionSlider::followSteps);
}

double FractionSlider::fraction() const {
    return shown;
}

void FractionSlider::setFraction(double fraction) {
    precondition(!std::isnan(fraction), "a slider's fraction is a number");
    const QSignalBlocker quiet(this);
    shown = std::clamp(fraction, 0.0, 1.0);
    setValue(stepOf(shown));
}

bool FractionSlider::isEditing() const {
    return gesture.isActive();
}

void FractionSlider::moveAtOnce(double fraction) {
    endEveryGesture();
    report(gesture.begin(Source::keyboard));
    setValue(stepOf(std::clamp(fraction, 0.0, 1.0)));
    report(gesture.end(Source::keyboard));
}

QSize FractionSlider::sizeHint() const {
    return {160, QSlider::sizeHint().height()};
}

QSize FractionSlider::minimumSizeHint() const {
    return {60, QSlider::minimumSizeHint().height()};
}

QRect FractionSlider::part(QStyle::SubControl part) const {
    QStyleOptionSlider option;
    initStyleOption(&option);
    return style()->subControlRect(QStyle::CC_Slider, &option, part, this);
}

int FractionSlider::stepAt(int x) const {
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QRect groove = part(QStyle::SC_SliderGroove);
    const QRect knob = part(QStyle::SC_SliderHandle);
    const int toMiddle = knob.center().x() - knob.left();
    return QStyle::sliderValueFromPosition(minimum(), maximum(), x - groove.left() - toMiddle,
                                           groove.width() - knob.width(), option.upsideDown);
}

void FractionSlider::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    report(gesture.begin(Source::pointer));
    const int place = event->position().toPoint().x();
    const QRect knob = part(QStyle::SC_SliderHandle);
    if (place < knob.left() || place > knob.right())
        setValue(stepAt(place));
    grip = event->position() - part(QStyle::SC_SliderHandle).center();
    // Some styles bring the middle of the knob to a press, to the next pixel; a mere press moves
    // nothing.
    const QSignalBlocker quiet(this);
    const int held = value();
    QMouseEvent inTheMiddle = moved(*event, grip);
    QSlider::mousePressEvent(&inTheMiddle);
    setValue(held);
}

void FractionSlider::mouseMoveEvent(QMouseEvent* event) {
    QMouseEvent inTheMiddle = moved(*event, grip);
    if (gesture.isHeldBy(Source::pointer))
        QSlider::mouseMoveEvent(&inTheMiddle);
    else
        event->ignore();
}

void FractionSlider::mouseReleaseEvent(QMouseEvent* event) {
    QSlider::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton)
        report(gesture.end(Source::pointer));
}

void FractionSlider::keyPressEvent(QKeyEvent* event) {
    if (event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) {
        event->ignore();
        return;
    }
    // Told before the slider moves, if it is to move at all.
    const auto begin = [this] { report(gesture.begin(Source::keyboard)); };
    const auto connection = connect(this, &QSlider::actionTriggered, this, begin);
    QSlider::keyPressEvent(event);
    disconnect(connection);
    if (event->isAccepted())
        heldKeys.insert(event->key());
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
    event->ignore();
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

void FractionSlider::followSteps(int step) {
    shown = double(step) / resolution;
    emit fractionChanged(shown);
}

void FractionSlider::report(const SliderGesture::Reports& reports) {
    for (const SliderGesture::Report report : reports)
        emit editingChanged(report == SliderGesture::Report::began);
}

void FractionSlider::endEveryGesture() {
    heldKeys.clear();
    setSliderDown(false);
    report(gesture.endAny());
}

} // namespace tervale
