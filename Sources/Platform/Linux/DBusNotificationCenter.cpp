#include "Platform/Linux/DBusNotificationCenter.h"

#include <QFileInfo>
#include <QPointer>

#include <utility>

namespace tervale {

namespace {

constexpr QLatin1String path("/com/velnor/tervale");
constexpr QLatin1String interface("com.velnor.tervale.NotificationCenter");
constexpr QLatin1String member("Posted");

/// A message may have twice as many bytes. The bus hangs up on who sends one that is too long.
constexpr std::size_t longestObject = std::size_t{1} << 26;

/// Looking for a bus that is not there could start one.
bool sessionBusIsThere() {
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

std::optional<std::string> objectOf(const QDBusMessage& message) {
    const QList<QVariant> arguments = message.arguments();
    if (arguments.size() != 2 || arguments[1].metaType() != QMetaType::fromType<QString>())
        return std::nullopt;
    return arguments[1].toString().toStdString();
}

} // namespace

DBusObserver::DBusObserver(NotificationCenter::Handler observing, QObject* parent)
    : QObject(parent),
      handler(std::move(observing)) {}

void DBusObserver::retire() {
    retired = true;
    deleteLater();
}

void DBusObserver::receive(const QDBusMessage& message) {
    if (!retired)
        handler(objectOf(message));
}

std::unique_ptr<DBusNotificationCenter> DBusNotificationCenter::onSessionBus() {
    if (!sessionBusIsThere())
        return nullptr;
    const QDBusConnection bus = QDBusConnection::sessionBus();
    return bus.isConnected() ? std::make_unique<DBusNotificationCenter>(bus) : nullptr;
}

DBusNotificationCenter::DBusNotificationCenter(const QDBusConnection& bus) : connection(bus) {}

DBusNotificationCenter::~DBusNotificationCenter() = default;

void DBusNotificationCenter::post(const std::string& name,
                                  const std::optional<std::string>& object) {
    if (object && object->size() > longestObject)
        return;
    QDBusMessage signal = QDBusMessage::createSignal(path, interface, member);
    signal << QString::fromStdString(name);
    if (object)
        signal << QString::fromStdString(*object);
    connection.send(signal);
}

ObserverToken DBusNotificationCenter::observe(const std::string& name, Handler handler) {
    auto* observer = new DBusObserver(std::move(handler), &observers);
    connection.connect(QString(), path, interface, member, {QString::fromStdString(name)},
                       QString(), observer, SLOT(receive(QDBusMessage)));
    return ObserverToken([observer = QPointer(observer)] {
        if (observer)
            observer->retire();
    });
}

} // namespace tervale
