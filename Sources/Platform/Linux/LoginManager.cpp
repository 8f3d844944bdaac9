#include "Platform/Linux/LoginManager.h"

#include "Platform/Linux/Logind.h"

#include <QDBusMessage>
#include <QDBusPendingReply>

#include <utility>

namespace tervale {

LoginManager::LoginManager(const QDBusConnection& systemBus, SleepHandlers given)
    : bus(systemBus),
      handlers(std::move(given)),
      owner(logind::name, bus, QDBusServiceWatcher::WatchForOwnerChange) {
    bus.connect(logind::name, logind::path, logind::manager, QStringLiteral("PrepareForSleep"),
                this, SLOT(prepareForSleep(bool)));
    connect(&owner, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& present) {
                if (present.isEmpty())
                    tell(SleepNews::untold);
                else
                    askForDelay();
            });
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
    QDBusMessage call = QDBusMessage::createMethodCall(logind::name, logind::path, logind::manager,
                                                       QStringLiteral("Inhibit"));
    call << QStringLiteral("sleep") << QStringLiteral("Tervale")
         << QStringLiteral("The fans are handed back") << QStringLiteral("delay");
    asking = std::make_unique<QDBusPendingCallWatcher>(bus.asyncCall(call));
    connect(asking.get(), &QDBusPendingCallWatcher::finished, this, [this] {
        const QDBusPendingReply<QDBusUnixFileDescriptor> answer = *asking;
        // Without a delay the fans are handed back as soon as may be, if the sleep is told at all.
        if (!answer.isError())
            delay = answer.value();
        tell(answer.isError() ? SleepNews::untold : SleepNews::told);
        // The answer holds the file open as well.
        asking.release()->deleteLater();
    });
}

void LoginManager::tell(SleepNews news) {
    // That all is well is no news at first.
    const bool isNews = told.value_or(SleepNews::told) != news;
    told = news;
    if (isNews && handlers.news)
        handlers.news(news);
}

} // namespace tervale
