#include "Machine/SessionEnd.h"

#include <utility>

namespace tervale {

SessionEnd::SessionEnd(NotificationCenter& center, std::function<void()> handler,
                       std::chrono::milliseconds patience) {
    timer.setSingleShot(true);
    timer.setInterval(patience);
    QObject::connect(&timer, &QTimer::timeout, &timer, std::move(handler));
    channel = center.observeChannel([this](Channel state) {
        if (state == Channel::back)
            timer.stop();
        else if (!timer.isActive())
            timer.start();
    });
}

} // namespace tervale
