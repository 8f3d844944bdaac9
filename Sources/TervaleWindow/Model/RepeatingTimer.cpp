#include "TervaleWindow/Model/RepeatingTimer.h"

#include <QTimer>

#include <utility>

namespace tervale {

std::shared_ptr<void> makeToolkitTimer(std::chrono::milliseconds interval,
                                       std::chrono::milliseconds tolerance,
                                       std::function<void()> handler) {
    auto timer = std::make_shared<QTimer>();
    // A coarse timer may be late by a twentieth, which lets the system wake up for many at once.
    timer->setTimerType(tolerance >= interval / 20 ? Qt::CoarseTimer : Qt::PreciseTimer);
    QObject::connect(timer.get(), &QTimer::timeout, timer.get(), std::move(handler));
    timer->start(interval);
    return timer;
}

} // namespace tervale
