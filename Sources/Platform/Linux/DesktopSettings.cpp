#include "Platform/Linux/DesktopSettings.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QFile>
#include <QSettings>
#include <QStringList>

namespace tervale {

namespace {

constexpr QLatin1String portalName("org.freedesktop.portal.Desktop");
constexpr QLatin1String portalPath("/org/freedesktop/portal/desktop");
constexpr QLatin1String settingsInterface("org.freedesktop.portal.Settings");
/// Of a map of maps.
constexpr QLatin1String allSettings("a{sa{sv}}");

/// Older portals wrap a value twice.
QVariant unwrapped(QVariant value) {
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

bool isAskedFor(const QString& group) {
    return group == desktopGroup::appearance || group == desktopGroup::interface ||
           group == desktopGroup::accessibility;
}

QVariantMap gtkSettings(const std::filesystem::path& configuration) {
    QVariantMap found;
    for (const char* version : {"gtk-3.0", "gtk-4.0"}) {
        const std::filesystem::path file = configuration / version / "settings.ini";
        QSettings settings(QFile::decodeName(file.c_str()), QSettings::IniFormat);
        settings.beginGroup(QStringLiteral("Settings"));
        // The newer version's take the place of the older one's.
        for (const QString& key : settings.childKeys())
            found.insert(key, settings.value(key));
    }
    return found;
}

} // namespace

DesktopSettings::DesktopSettings(const QDBusConnection& sessionBus,
                                 const std::filesystem::path& configuration)
    : bus(sessionBus),
      gtk(gtkSettings(configuration)) {
    // Without its type known, nothing would be connected.
    qDBusRegisterMetaType<QDBusVariant>();
    bus.connect(portalName, portalPath, settingsInterface, QStringLiteral("SettingChanged"), this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    QDBusMessage call = QDBusMessage::createMethodCall(portalName, portalPath, settingsInterface,
                                                       QStringLiteral("ReadAll"));
    call << QStringList{desktopGroup::appearance, desktopGroup::interface,
                        desktopGroup::accessibility};
    auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        takeAll(answer->reply());
    });
}

QVariant DesktopSettings::value(const QString& group, const QString& key) const {
    return values.value(group + '/' + key);
}

QVariant DesktopSettings::gtkValue(const QString& key) const {
    return gtk.value(key);
}

void DesktopSettings::settingChanged(const QString& group, const QString& key,
                                     const QDBusVariant& value) {
    if (take(group, key, value.variant()))
        emit changed();
}

void DesktopSettings::takeAll(const QDBusMessage& answer) {
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != allSettings)
        return;
    const auto groups = qdbus_cast<QMap<QString, QVariantMap>>(answer.arguments().constFirst());
    bool any = false;
    for (auto group = groups.begin(); group != groups.end(); ++group) {
        for (auto each = group->begin(); each != group->end(); ++each)
            any = take(group.key(), each.key(), each.value()) || any;
    }
    if (any)
        emit changed();
}

bool DesktopSettings::take(const QString& group, const QString& key, const QVariant& value) {
    if (!isAskedFor(group))
        return false;
    values.insert(group + '/' + key, unwrapped(value));
    return true;
}

} // namespace tervale
