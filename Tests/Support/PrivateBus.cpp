#include "Support/PrivateBus.h"

#include <QDBusMessage>

namespace tervale {

PrivateBus::PrivateBus() {
    std::filesystem::create_directory(runtimeFolder());
    std::filesystem::permissions(runtimeFolder(), std::filesystem::perms::owner_all);
    busAddress = QStringLiteral("unix:path=%1").arg(QString::fromStdString(busSocket()));
    start();
}

void PrivateBus::start() {
    serve(busAddress);
}

void PrivateBus::start(const std::function<void(const QDBusConnection&)>& first) {
    const std::filesystem::path hidden = folder.path / "hidden.socket";
    const QString address = QStringLiteral("unix:path=%1").arg(QString::fromStdString(hidden));
    serve(address);
    first(connectTo(address));
    std::filesystem::rename(hidden, busSocket());
}

void PrivateBus::serve(const QString& address) {
    daemon.emplace(QStringLiteral("dbus-daemon"),
                   QStringList{QStringLiteral("--session"), QStringLiteral("--nofork"),
                               QStringLiteral("--print-address"), "--address=" + address},
                   QProcessEnvironment::systemEnvironment());
    daemon->says("\n");
}

PrivateBus::~PrivateBus() {
    for (const QString& name : connections)
        QDBusConnection::disconnectFromBus(name);
}

QDBusConnection PrivateBus::connect() {
    return connectTo(busAddress);
}

QDBusConnection PrivateBus::connectTo(const QString& address) {
    static int number = 0;
    connections << QStringLiteral("test-%1").arg(++number);
    return QDBusConnection::connectToBus(address, connections.constLast());
}

void PrivateBus::settle(const QDBusConnection& connection) {
    connection.call(QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetId")));
}

QProcessEnvironment PrivateBus::environment() const {
    const auto text = [](const std::filesystem::path& path) {
        return QString::fromStdString(path.string());
    };
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), busAddress);
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), text(runtimeFolder()));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), text(folder.path / "config"));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    return environment;
}

std::unique_ptr<ChildProcess> PrivateBus::monitor() const {
    auto monitor = std::make_unique<ChildProcess>(
        QStringLiteral("dbus-monitor"),
        QStringList{QStringLiteral("--session"),
                    QStringLiteral("interface='com.velnor.tervale.NotificationCenter'")},
        environment());
    // The bus tells it that it has lost its name once it is a monitor.
    monitor->says("NameLost");
    return monitor;
}

bool PrivateBus::emitWithTool(const QStringList& arguments) const {
    ChildProcess tool(QStringLiteral("gdbus"),
                      QStringList{QStringLiteral("emit"), QStringLiteral("--session"),
                                  QStringLiteral("--object-path"),
                                  QStringLiteral("/com/velnor/tervale"), QStringLiteral("--signal"),
                                  QStringLiteral("com.velnor.tervale.NotificationCenter.Posted")} +
                          arguments,
                      environment());
    return tool.ends() && tool.status() == 0;
}

} // namespace tervale
