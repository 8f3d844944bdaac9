#pragma once

#include <QDBusConnection>
#include <QDBusUnixFileDescriptor>
#include <QObject>
#include <QStringList>

#include <array>
#include <unistd.h>

namespace tervale {

/// The system's login manager on a test's bus, which lets the machine sleep and wake.
class FakeLoginManager : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.login1.Manager")

  public:
    explicit FakeLoginManager(QDBusConnection bus) {
        bus.registerObject(QStringLiteral("/org/freedesktop/login1"), this,
                           QDBusConnection::ExportAllContents);
        bus.registerService(QStringLiteral("org.freedesktop.login1"));
    }
    ~FakeLoginManager() override { closeReadingEnd(); }

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
    void PrepareForSleep(bool begins); // NOLINT(readability-identifier-naming)

  public slots:
    QDBusUnixFileDescriptor Inhibit(const QString& what, const QString& who, const QString& why,
                                    const QString& mode);

  private:
    void closeReadingEnd() {
        if (readingEnd >= 0)
            ::close(readingEnd);
        readingEnd = -1;
    }

    int readingEnd = -1;
};

} // namespace tervale
