#include "Platform/Linux/LoginSession.h"

#include "Platform/Linux/Logind.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <unistd.h>
#include <utility>

namespace tervale {

namespace {

constexpr QLatin1String propertiesInterface("org.freedesktop.DBus.Properties");

} // namespace

LoginSession::LoginSession(const QDBusConnection& systemBus, std::function<void()> handler,
                           const QString& sessionFiles)
    : bus(systemBus),
      over(std::move(handler)),
      files(sessionFiles) {
    connect(&changes, &QFileSystemWatcher::directoryChanged, this, &LoginSession::look);
    // Without its type known, nothing would be connected.
    qDBusRegisterMetaType<QDBusObjectPath>();
    bus.connect(logind::name, logind::path, logind::manager, QStringLiteral("SessionRemoved"), this,
                SLOT(remove(QString, QDBusObjectPath)));
    findSession();
}

void LoginSession::findSession() {
    QDBusMessage call = QDBusMessage::createMethodCall(logind::name, logind::path, logind::manager,
                                                       QStringLiteral("GetSessionByPID"));
    call << static_cast<uint>(::getpid());
    auto* asking = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(asking, &QDBusPendingCallWatcher::finished, this, [this, asking] {
        const QDBusPendingReply<QDBusObjectPath> answer = *asking;
        if (!answer.isError())
            follow(answer.value().path());
        asking->deleteLater();
    });
}

void LoginSession::follow(const QString& found) {
    session = found;
    bus.connect(logind::name, session, propertiesInterface, QStringLiteral("PropertiesChanged"),
                this, SLOT(look()));
    // A system without the folder has no such manager.
    changes.addPath(files);
    // What happened before was nobody's news.
    look();
}

void LoginSession::remove(const QString&, const QDBusObjectPath& removed) {
    if (!session.isEmpty() && removed.path() == session)
        end();
}

void LoginSession::look() {
    if (session.isEmpty() || !over)
        return;
    QDBusMessage call = QDBusMessage::createMethodCall(logind::name, session, propertiesInterface,
                                                       QStringLiteral("Get"));
    call << logind::session << QStringLiteral("State");
    auto* asking = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(asking, &QDBusPendingCallWatcher::finished, this, [this, asking] {
        const QDBusPendingReply<QDBusVariant> answer = *asking;
        asking->deleteLater();
        // A manager that is out of reach says nothing of the session; one that no longer has it
        // does.
        if (answer.isError() ? answer.error().type() == QDBusError::UnknownObject
                             : answer.value().variant().toString() == QLatin1String("closing"))
            end();
    });
}

void LoginSession::end() {
    if (const auto handler = std::exchange(over, nullptr))
        handler();
}

} // namespace tervale
