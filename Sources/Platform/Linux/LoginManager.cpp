#include "Platform/Linux/LoginManager.h"

#include <QDBusMessage>
#include <QDBusPendingReply>

#include <utility>

namespace tervale {

namespace {

constexpr QLatin1String name("org.freedesktop.login1");
constexpr QLatin1String path("/org/freedesktop/login1");
constexpr QLatin1String interface("org.freedesktop.login1.Manager");

} // namespace

LoginManager::LoginManager(const QDBusConnection& systemBus, SleepHandlers given)
    : bus(systemBus),
      handlers(std::move(given)) {
    bus.connect(name, path, interface, QStringLiteral("PrepareForSleep"), this,
                SLOT(prepareForSleep(bool)));
    askForDelay();
}

void LoginManager::prepareForSleep(bool begins) {
    if (begins) {
        handlers.before();
        // A delay that is yet to be granted would be for nothing.
        asking.reset();
        delay = {};
    } else {
        handlers.after();
        askForDelay();
    }
}

void LoginManager::askForDelay() {
    QDBusMessage call =
        QDBusMessage::createMethodCall(name, path, interface, QStringLiteral("Inhibit"));
    call << QStringLiteral("sleep") << QStringLiteral("Tervale")
         << QStringLiteral("The fans are handed back") << QStringLiteral("delay");
    asking = std::make_unique<QDBusPendingCallWatcher>(bus.asyncCall(call));
    connect(asking.get(), &QDBusPendingCallWatcher::finished, this, [this] {
        const QDBusPendingReply<QDBusUnixFileDescriptor> answer = *asking;
        // Without a delay the fans are handed back as soon as may be.
        if (!answer.isError())
            delay = answer.value();
        // The answer holds the file open as well.
        asking.release()->deleteLater();
    });
}

} // namespace tervale
