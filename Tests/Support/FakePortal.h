#pragma once

#include <QDBusConnection>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QMap>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>

namespace tervale {

/// A desktop's portal of settings on a test's bus.
class FakePortal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

  public:
    explicit FakePortal(QDBusConnection bus) {
        qDBusRegisterMetaType<QMap<QString, QVariantMap>>();
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
    QMap<QString, QVariantMap> ReadAll(const QStringList& groups) {
        ++answers;
        QMap<QString, QVariantMap> found;
        for (auto each = settings.begin(); each != settings.end(); ++each) {
            const QString group = each.key().section('/', 0, 0);
            if (groups.contains(group))
                found[group][each.key().section('/', 1)] =
                    QVariant::fromValue(QDBusVariant(each.value()));
        }
        return found;
    }
};

} // namespace tervale
