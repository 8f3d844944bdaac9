#include "Machine/SessionEnd.h"

#include <utility>

namespace tervale {

SessionEnd::SessionEnd(NotificationCenter& center, std::function<void()> atEnd,
                       std::chrono::milliseconds patience, const WatchMaker& makeWatch)
    : handler(std::move(atEnd)) {
    timer.setSingleShot(true);
    timer.setInterval(patience);
    QObject::connect(&timer, &QTimer::timeout, &timer, [this] { end(); });
    looking.setInterval(lookInterval);
    QObject::connect(&looking, &QTimer::timeout, &looking, [this] { watch->look(); });
    channel = center.observeChannel([this](Channel state) { follow(state); });
    watch = makeWatch([this] { end(); });
}

void SessionEnd::follow(Channel state) {
    if (state == Channel::back) {
        timer.stop();
        looking.stop();
    } else if (!timer.isActive() && handler) {
        timer.start();
        if (watch) {
            looking.start();
            watch->look();
        }
    }
}

void SessionEnd::end() {
    timer.stop();
    looking.stop();
    if (const auto handle = std::exchange(handler, nullptr))
        handle();
}

} // namespace tervale
