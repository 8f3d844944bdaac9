#include "Support/FakeLoginManager.h"

#include <QDBusMessage>
#include <QVariantMap>

#include <fcntl.h>

namespace tervale {

QDBusUnixFileDescriptor FakeLoginManager::Inhibit(const QString& what, const QString& who,
                                                  const QString& why, const QString& mode) {
    asked = {what, who, why, mode};
    ++delays;
    closeReadingEnd();
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return {};
    readingEnd = ends[0];
    // The answer has a descriptor of its own.
    QDBusUnixFileDescriptor writingEnd(ends[1]);
    ::close(ends[1]);
    return writingEnd;
}

void FakeLoginManager::tellOfSession() {
    QDBusMessage news = QDBusMessage::createSignal(
        QString::fromLatin1(sessionPath), QStringLiteral("org.freedesktop.DBus.Properties"),
        QStringLiteral("PropertiesChanged"));
    news << QStringLiteral("org.freedesktop.login1.Session")
         << QVariantMap{{QStringLiteral("Active"), false}} << QStringList();
    bus.send(news);
}

QDBusObjectPath FakeLoginManager::GetSessionByPID(uint) {
    ++sessionsAsked;
    return QDBusObjectPath(QString::fromLatin1(sessionPath));
}

} // namespace tervale
