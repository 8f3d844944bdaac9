#include "TervaleWindow/Gauges/GaugeAnimation.h"

#include <QWidget>
#include <QWindow>

#include <cmath>

namespace tervale {

namespace {

// Half of the ticks are passed over: a gauge moves too little in one of them for anyone to see.
constexpr int frameInterval = 30; // milliseconds

bool isSeen(const QWidget& gauge) {
    const QWindow* window = gauge.window()->windowHandle();
    return gauge.isVisible() && window && window->isExposed();
}

} // namespace

double Transition::at(double progress) const {
    if (progress >= 1 || !std::isfinite(from) || !std::isfinite(to))
        return to;
    return from + (to - from) * progress;
}

const QEasingCurve& gaugeEasing() {
    static const QEasingCurve curve = [] {
        QEasingCurve spline(QEasingCurve::BezierSpline);
        spline.addCubicBezierSegment({0.25, 0.1}, {0.25, 1.0}, {1, 1});
        return spline;
    }();
    return curve;
}

GaugeAnimation::GaugeAnimation(QWidget& seen) : QVariantAnimation(&seen), gauge(seen) {
    setStartValue(0.0);
    setEndValue(1.0);
    setDuration(gaugeDuration);
    setEasingCurve(gaugeEasing());
}

void GaugeAnimation::begin() {
    stop();
    if (!isSeen(gauge)) {
        emit advanced();
        return;
    }
    lastFrame = 0;
    start();
}

void GaugeAnimation::finish() {
    if (state() == Stopped)
        return;
    stop();
    emit advanced();
}

double GaugeAnimation::progress() const {
    return state() == Stopped ? 1 : currentValue().toDouble();
}

void GaugeAnimation::updateCurrentValue(const QVariant&) {
    // Setting up a stopped animation comes by here too.
    if (state() == Stopped)
        return;
    if (!isSeen(gauge)) {
        finish();
        return;
    }
    const bool isLast = currentTime() >= duration();
    if (!isLast && currentTime() - lastFrame < frameInterval)
        return;
    lastFrame = currentTime();
    emit advanced();
}

} // namespace tervale
