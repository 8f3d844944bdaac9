#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusVariant>
#include <QMap>
#include <QObject>
#include <QString>

namespace tervale {

/// A desktop's portal of settings on a test's bus.
class FakePortal : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

  public:
    explicit FakePortal(QDBusConnection bus) {
        bus.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                           QDBusConnection::ExportAllContents);
        bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }

    /// By group and key, with a slash between them.
    QMap<QString, QVariant> settings;
    int answers = 0;

  signals:
    // NOLINTNEXTLINE(readability-identifier-naming)
    void SettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

  public slots:
    /// Wraps a value twice, as older portals do.
    QDBusVariant Read(const QString& group, const QString& key) {
        ++answers;
        const QVariant value = settings.value(group + '/' + key);
        if (!value.isValid())
            sendErrorReply(QStringLiteral("org.freedesktop.portal.Error.NotFound"), key);
        return QDBusVariant(QVariant::fromValue(QDBusVariant(value)));
    }
};

} // namespace tervale
