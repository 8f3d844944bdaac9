#pragma once

#include "Platform/SessionWatch.h"

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QObject>
#include <QString>

#include <functional>

namespace tervale {

/// Hears from the system's login manager that the session of this process is over. A process of no
/// session, such as a service of the user's, hears nothing: its manager ends it.
///
/// | part            | value                                                           |
/// |-----------------|-----------------------------------------------------------------|
/// | name            | org.freedesktop.login1                                          |
/// | path            | /org/freedesktop/login1                                         |
/// | interface       | org.freedesktop.login1.Manager                                  |
/// | GetSessionByPID | (u process) answers the session's path                          |
/// | SessionRemoved  | (s id, o path): the session is gone                             |
/// | State           | of org.freedesktop.login1.Session at the path, s: "closing" for |
/// |                 | one whose user has left it, but whose processes have not        |
///
/// Main thread.
class LoginSession final : public QObject, public SessionWatch {
    Q_OBJECT

  public:
    /// `over` is called once at most.
    LoginSession(const QDBusConnection& bus, std::function<void()> over);

    void look() override;

  public slots: // NOLINT(readability-redundant-access-specifiers)
    void remove(const QString& id, const QDBusObjectPath& path);

  private:
    void findSession();
    void end();

    QDBusConnection bus;
    std::function<void()> over;
    /// Empty until it is known.
    QString session;
};

} // namespace tervale
