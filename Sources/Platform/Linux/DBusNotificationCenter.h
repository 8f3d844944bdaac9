#pragma once

#include "Profiles/NotificationCenter.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace tervale {

/// Whether the session has a bus. To look for one that is not there could start it.
bool sessionBusIsThere();

class BusProbe;
class DBusObserver;

/// The notification center of a user's session: a notification is a broadcast signal on a D-Bus
/// bus, from any sender.
///
/// | part      | value                                                      |
/// |-----------|------------------------------------------------------------|
/// | path      | /com/velnor/tervale                                        |
/// | interface | com.velnor.tervale.NotificationCenter                      |
/// | member    | Posted                                                     |
/// | argument  | s: the notification's name                                 |
/// | argument  | s: its string; left out when the notification carries none |
///
/// A notification whose arguments are others counts as one without a string. When the bus is gone,
/// the center looks for another at the same address, less and less often. Nobody waits for one that
/// does not answer. Observed on the main thread, whose event loop delivers; posted from any.
class DBusNotificationCenter final : public NotificationCenter {
  public:
    /// Makes a connection, with a name of its own, to the bus that is there now.
    using Connector = std::function<QDBusConnection()>;

    /// How long the center waits before it looks for a bus again: first, and in the end.
    static constexpr std::chrono::milliseconds shortestWait{250};
    static constexpr std::chrono::milliseconds longestWait{8000};

    /// On the session bus; null if there is none.
    static std::unique_ptr<DBusNotificationCenter> onSessionBus();

    /// Connects again only once somebody answers at the address of the bus; an empty one, or one
    /// that is no Unix socket's, is not asked before.
    explicit DBusNotificationCenter(const Connector& connector, const std::string& address = {});
    /// On this connection, for as long as it lasts.
    explicit DBusNotificationCenter(const QDBusConnection& connection);
    ~DBusNotificationCenter() override;

    void post(const std::string& name, const std::optional<std::string>& object) override;
    [[nodiscard]] ObserverToken observe(const std::string& name, Handler handler) override;
    [[nodiscard]] ObserverToken observeChannel(std::function<void(Channel)> handler) override;

  private:
    struct ChannelObservers {
        std::map<std::uint64_t, std::function<void(Channel)>> handlers;
        std::uint64_t next = 0;
    };

    DBusNotificationCenter(Connector connector, const QDBusConnection& connection,
                           const std::string& address);

    QDBusConnection current() const;
    void watch();
    void lost();
    void lookForBus();
    void connectAgain();
    void tryLater();
    void tell(Channel channel) const;

    /// Empty for a center that looks for no other bus.
    Connector connector;
    /// Of the socket that is asked first.
    std::optional<std::string> socketName;
    mutable std::mutex mutex;
    QDBusConnection connection;
    /// Owns the observers.
    QObject observers;
    std::unique_ptr<DBusObserver> lossObserver;
    std::shared_ptr<ChannelObservers> channelObservers = std::make_shared<ChannelObservers>();
    QTimer retry;
    /// The last one that asked.
    std::unique_ptr<BusProbe> probe;
    std::chrono::milliseconds wait = shortestWait;
};

/// One registration.
class DBusObserver final : public QObject {
    Q_OBJECT

  public:
    DBusObserver(std::string name, NotificationCenter::Handler handler, QObject* parent);

    /// Has the connection's bus deliver to it.
    void join(QDBusConnection connection);
    /// No call of the handler begins any more; one that runs may finish.
    void retire();

  public slots: // NOLINT(readability-redundant-access-specifiers)
    void receive(const QDBusMessage& message);

  private:
    std::string name;
    NotificationCenter::Handler handler;
    bool retired = false;
};

} // namespace tervale
