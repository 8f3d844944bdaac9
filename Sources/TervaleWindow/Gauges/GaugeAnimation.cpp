#include "TervaleWindow/Gauges/GaugeAnimation.h"

#include "TervaleWindow/Appearance/Motion.h"

#include <QScreen>
#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace tervale {

namespace {

bool isSeen(const QWidget& gauge) {
    const QWindow* window = gauge.window()->windowHandle();
    return gauge.isVisible() && window && window->isExposed();
}

/// In milliseconds. Some screens tell no rate, or none that can be.
double refreshIntervalOf(const QWidget& gauge) {
    const double rate = gauge.screen()->refreshRate();
    return 1000 / (rate >= 20 && rate <= 1000 ? rate : 60);
}

/// All gauges reckon the refreshes from the same moment, so that those that move together are drawn
/// together.
double untilRefresh(double interval) {
    using Milliseconds = std::chrono::duration<double, std::milli>;
    const double now = Milliseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
    return interval - std::fmod(now, interval);
}

} // namespace

double Transition::at(double progress) const {
    if (progress >= 1 || !std::isfinite(from) || !std::isfinite(to))
        return to;
    return from + (to - from) * progress;
}

double Transition::distance() const {
    return std::isfinite(from) && std::isfinite(to) ? std::abs(to - from) : 0;
}

GaugeAnimation::GaugeAnimation(QWidget& seen) : QObject(&seen), gauge(seen) {
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    connect(&timer, &QTimer::timeout, this,
            [this] { advanceTo(static_cast<double>(sinceBeginning.nsecsElapsed()) / 1e6); });
}

void GaugeAnimation::begin(double distance) {
    stop();
    if (!isSeen(gauge) || reducedMotion()) {
        emit advanced();
        return;
    }
    const double interval = refreshIntervalOf(gauge);
    frames = {distance * gauge.devicePixelRatioF(), untilRefresh(interval), interval};
    shown = 0;
    running = true;
    sinceBeginning.start();
    arm();
}

void GaugeAnimation::finish() {
    if (!running)
        return;
    stop();
    emit advanced();
}

void GaugeAnimation::stop() {
    running = false;
    timer.stop();
}

double GaugeAnimation::progress() const {
    return running ? eased(shown / gaugeDuration) : 1;
}

void GaugeAnimation::advanceTo(double milliseconds) {
    if (!running)
        return;
    if (milliseconds >= gaugeDuration || !isSeen(gauge)) {
        finish();
        return;
    }
    if (milliseconds > shown) {
        shown = milliseconds;
        emit advanced();
    }
    if (running)
        arm();
}

void GaugeAnimation::arm() {
    const double elapsed = static_cast<double>(sinceBeginning.nsecsElapsed()) / 1e6;
    timer.start(static_cast<int>(std::ceil(std::max(0.0, nextFrame() - elapsed))));
}

} // namespace tervale
