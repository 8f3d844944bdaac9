#pragma once

#include "Platform/SleepWatch.h"

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QDBusUnixFileDescriptor>
#include <QObject>

#include <memory>
#include <optional>

namespace tervale {

/// Hears from the system's login manager when the machine goes to sleep, and has it wait until the
/// handler has run.
///
/// | part      | value                                                               |
/// |-----------|---------------------------------------------------------------------|
/// | name      | org.freedesktop.login1                                              |
/// | path      | /org/freedesktop/login1                                             |
/// | interface | org.freedesktop.login1.Manager                                      |
/// | Inhibit   | ("sleep", who, why, "delay") answers the file that holds the delay  |
/// | signal    | PrepareForSleep(b): true before the sleep, false after it           |
///
/// Closing the file lets the machine sleep. A manager that is started anew is asked again. Main
/// thread.
class LoginManager final : public QObject {
    Q_OBJECT

  public:
    LoginManager(const QDBusConnection& bus, SleepHandlers handlers);

  public slots: // NOLINT(readability-redundant-access-specifiers)
    void prepareForSleep(bool begins);

  private:
    void askForDelay();
    /// Passes on what is news.
    void tell(SleepNews news);

    QDBusConnection bus;
    SleepHandlers handlers;
    QDBusServiceWatcher owner;
    /// Nothing until it was told.
    std::optional<SleepNews> told;
    std::unique_ptr<QDBusPendingCallWatcher> asking;
    /// Not valid while there is no delay.
    QDBusUnixFileDescriptor delay;
};

} // namespace tervale
