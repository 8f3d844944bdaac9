#pragma once

#include "Platform/SessionWatch.h"

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QFileSystemWatcher>
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
/// No signal tells of the state. It is looked at whenever another property of the session changes,
/// and whenever the manager writes a file of its sessions, which it does for each state of one.
/// Main thread.
class LoginSession final : public QObject, public SessionWatch {
    Q_OBJECT

  public:
    /// Where the manager keeps the files of its sessions.
    static constexpr const char* usualFiles = "/run/systemd/sessions";

    /// `over` is called once at most.
    LoginSession(const QDBusConnection& bus, std::function<void()> over,
                 const QString& sessionFiles = QString::fromLatin1(usualFiles));

  public slots: // NOLINT(readability-redundant-access-specifiers)
    void look() override;
    void remove(const QString& id, const QDBusObjectPath& path);

  private:
    void findSession();
    /// From now on each news of the session is followed.
    void follow(const QString& path);
    void end();

    QDBusConnection bus;
    std::function<void()> over;
    QString files;
    QFileSystemWatcher changes;
    /// Empty until it is known.
    QString session;
};

} // namespace tervale
