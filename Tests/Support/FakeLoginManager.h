#pragma once

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QObject>
#include <QStringList>

#include <array>
#include <unistd.h>
#include <utility>

namespace tervale {

/// A session that the login manager knows.
class FakeLoginSession : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.login1.Session")
    Q_PROPERTY(QString State MEMBER state)

  public:
    QString state = QStringLiteral("active");
};

/// The system's login manager on a test's bus, which lets the machine sleep and wake, and knows one
/// session.
class FakeLoginManager : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.login1.Manager")

  public:
    static constexpr const char* sessionPath = "/org/freedesktop/login1/session/_31";

    explicit FakeLoginManager(QDBusConnection given) : bus(std::move(given)) {
        bus.registerObject(QStringLiteral("/org/freedesktop/login1"), this,
                           QDBusConnection::ExportAllContents);
        bus.registerObject(QString::fromLatin1(sessionPath), &session,
                           QDBusConnection::ExportAllProperties);
        bus.registerService(QStringLiteral("org.freedesktop.login1"));
    }
    ~FakeLoginManager() override {
        bus.unregisterService(QStringLiteral("org.freedesktop.login1"));
        bus.unregisterObject(QStringLiteral("/org/freedesktop/login1"));
        closeReadingEnd();
    }
    /// Tells that something of the session is another now, but not what.
    void tellOfSession();
    /// Has it know no session any more, without a word.
    void forgetSession() { bus.unregisterObject(QString::fromLatin1(sessionPath)); }

    FakeLoginSession session;
    /// How often a process has asked for its session.
    int sessionsAsked = 0;

    /// The arguments of the last delay that was asked for.
    QStringList asked;
    int delays = 0;
    /// Whether somebody still has the machine wait.
    bool isDelayed() const {
        char byte = 0;
        // The end of the file comes when every writer has closed it.
        return readingEnd >= 0 && ::read(readingEnd, &byte, 1) != 0;
    }

  signals:
    // NOLINTBEGIN(readability-identifier-naming)
    void PrepareForSleep(bool begins);
    void SessionRemoved(const QString& id, const QDBusObjectPath& path);
    // NOLINTEND(readability-identifier-naming)

  public slots:
    QDBusUnixFileDescriptor Inhibit(const QString& what, const QString& who, const QString& why,
                                    const QString& mode);
    QDBusObjectPath GetSessionByPID(uint process);

  private:
    void closeReadingEnd() {
        if (readingEnd >= 0)
            ::close(readingEnd);
        readingEnd = -1;
    }

    QDBusConnection bus;
    int readingEnd = -1;
};

} // namespace tervale
