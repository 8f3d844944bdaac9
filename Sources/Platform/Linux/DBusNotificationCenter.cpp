#include "Platform/Linux/DBusNotificationCenter.h"

#include "Platform/Linux/BusProbe.h"

#include <QFileInfo>
#include <QPointer>

#include <algorithm>
#include <utility>
#include <vector>

namespace tervale {

namespace {

constexpr QLatin1String objectPath("/com/velnor/tervale");
constexpr QLatin1String centerInterface("com.velnor.tervale.NotificationCenter");
constexpr QLatin1String member("Posted");

/// A message may have twice as many bytes. The bus hangs up on who sends one that is too long.
constexpr std::size_t longestObject = std::size_t{1} << 26;

std::optional<std::string> objectOf(const QDBusMessage& message) {
    const QList<QVariant> arguments = message.arguments();
    if (arguments.size() != 2 || arguments[1].metaType() != QMetaType::fromType<QString>())
        return std::nullopt;
    return arguments[1].toString().toStdString();
}

/// Connections that are told apart by name, since a lost one keeps its own until it is let go.
QDBusConnection newSessionConnection() {
    static int number = 0;
    return QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                         QStringLiteral("tervale-%1").arg(++number));
}

/// Where the session's own socket lies unless it is told.
QString sessionSocket() {
    return qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus");
}

std::string sessionAddress() {
    const QByteArray told = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    return told.isEmpty() ? "unix:path=" + sessionSocket().toStdString() : told.toStdString();
}

} // namespace

bool sessionBusIsThere() {
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(sessionSocket());
}

DBusObserver::DBusObserver(std::string name, NotificationCenter::Handler observing, QObject* parent)
    : QObject(parent),
      name(std::move(name)),
      handler(std::move(observing)) {}

void DBusObserver::join(QDBusConnection connection) {
    if (!retired)
        connection.connect(QString(), objectPath, centerInterface, member,
                           {QString::fromStdString(name)}, QString(), this,
                           SLOT(receive(QDBusMessage)));
}

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
    auto center = std::make_unique<DBusNotificationCenter>(&newSessionConnection, sessionAddress());
    return center->current().isConnected() ? std::move(center) : nullptr;
}

DBusNotificationCenter::DBusNotificationCenter(const Connector& connector,
                                               const std::string& address)
    : DBusNotificationCenter(connector, connector(), address) {}

DBusNotificationCenter::DBusNotificationCenter(const QDBusConnection& bus)
    : DBusNotificationCenter(nullptr, bus, std::string()) {}

DBusNotificationCenter::DBusNotificationCenter(Connector making, const QDBusConnection& bus,
                                               const std::string& address)
    : connector(std::move(making)),
      socketName(busSocket(address)),
      connection(bus) {
    retry.setSingleShot(true);
    QObject::connect(&retry, &QTimer::timeout, &retry, [this] { lookForBus(); });
    watch();
}

DBusNotificationCenter::~DBusNotificationCenter() {
    // A connection that the center made is nobody else's.
    if (connector)
        QDBusConnection::disconnectFromBus(current().name());
}

QDBusConnection DBusNotificationCenter::current() const {
    const std::lock_guard lock(mutex);
    return connection;
}

void DBusNotificationCenter::watch() {
    lossObserver = std::make_unique<DBusObserver>(
        std::string(), [this](const auto&) { lost(); }, nullptr);
    current().connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                      QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"),
                      lossObserver.get(), SLOT(receive(QDBusMessage)));
}

void DBusNotificationCenter::lost() {
    if (connector && !retry.isActive()) {
        wait = shortestWait;
        retry.start(wait);
    }
    tell(Channel::gone);
}

void DBusNotificationCenter::lookForBus() {
    if (!socketName) {
        connectAgain();
        return;
    }
    const auto goOn = [this](bool answers) {
        if (answers)
            connectAgain();
        else
            tryLater();
    };
    probe = std::make_unique<BusProbe>(*socketName, goOn);
}

void DBusNotificationCenter::tryLater() {
    wait = std::min(2 * wait, longestWait);
    retry.start(wait);
}

void DBusNotificationCenter::connectAgain() {
    const QDBusConnection fresh = connector();
    if (!fresh.isConnected()) {
        QDBusConnection::disconnectFromBus(fresh.name());
        tryLater();
        return;
    }
    QDBusConnection::disconnectFromBus(current().name());
    {
        const std::lock_guard lock(mutex);
        connection = fresh;
    }
    watch();
    for (QObject* observer : observers.children())
        static_cast<DBusObserver*>(observer)->join(fresh);
    tell(Channel::back);
}

void DBusNotificationCenter::tell(Channel channel) const {
    // A handler may let go of itself, of others and of the center.
    const auto observing = channelObservers;
    std::vector<std::uint64_t> numbers;
    for (const auto& [number, handler] : observing->handlers)
        numbers.push_back(number);
    for (const std::uint64_t number : numbers) {
        const auto found = observing->handlers.find(number);
        if (found == observing->handlers.end())
            continue;
        const auto handler = found->second;
        handler(channel);
    }
}

void DBusNotificationCenter::post(const std::string& name,
                                  const std::optional<std::string>& object) {
    if (object && object->size() > longestObject)
        return;
    QDBusMessage signal = QDBusMessage::createSignal(objectPath, centerInterface, member);
    signal << QString::fromStdString(name);
    if (object)
        signal << QString::fromStdString(*object);
    current().send(signal);
}

ObserverToken DBusNotificationCenter::observe(const std::string& name, Handler handler) {
    auto* observer = new DBusObserver(name, std::move(handler), &observers);
    observer->join(current());
    return ObserverToken([observer = QPointer(observer)] {
        if (observer)
            observer->retire();
    });
}

ObserverToken DBusNotificationCenter::observeChannel(std::function<void(Channel)> handler) {
    const std::uint64_t number = channelObservers->next++;
    channelObservers->handlers.emplace(number, std::move(handler));
    return ObserverToken([weak = std::weak_ptr(channelObservers), number] {
        if (const auto observing = weak.lock())
            observing->handlers.erase(number);
    });
}

} // namespace tervale
