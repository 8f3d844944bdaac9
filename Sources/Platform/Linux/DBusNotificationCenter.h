#pragma once

#include "Profiles/NotificationCenter.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include <memory>

namespace tervale {

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
/// A notification whose arguments are others counts as one without a string. Observed on the main
/// thread, whose event loop delivers; posted from any.
class DBusNotificationCenter final : public NotificationCenter {
  public:
    /// On the session bus; null if there is none.
    static std::unique_ptr<DBusNotificationCenter> onSessionBus();

    explicit DBusNotificationCenter(const QDBusConnection& connection);
    ~DBusNotificationCenter() override;

    void post(const std::string& name, const std::optional<std::string>& object) override;
    [[nodiscard]] ObserverToken observe(const std::string& name, Handler handler) override;

  private:
    QDBusConnection connection;
    /// Owns the observers.
    QObject observers;
};

/// One registration.
class DBusObserver final : public QObject {
    Q_OBJECT

  public:
    DBusObserver(NotificationCenter::Handler handler, QObject* parent);

    /// No call of the handler begins any more; one that runs may finish.
    void retire();

  public slots: // NOLINT(readability-redundant-access-specifiers)
    void receive(const QDBusMessage& message);

  private:
    NotificationCenter::Handler handler;
    bool retired = false;
};

} // namespace tervale
