#include "Platform/Linux/DesktopMotion.h"

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFile>
#include <QSettings>

namespace tervale {

namespace {

constexpr QLatin1String name("org.freedesktop.portal.Desktop");
constexpr QLatin1String path("/org/freedesktop/portal/desktop");
constexpr QLatin1String portal("org.freedesktop.portal.Settings");
constexpr QLatin1String appearanceGroup("org.freedesktop.appearance");
constexpr QLatin1String reducedMotionKey("reduced-motion");
constexpr QLatin1String interfaceGroup("org.gnome.desktop.interface");
constexpr QLatin1String animationsKey("enable-animations");

/// Older portals wrap a value twice.
QVariant unwrapped(QVariant value) {
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

bool gtkAnimates(const std::filesystem::path& configuration) {
    for (const char* version : {"gtk-4.0", "gtk-3.0"}) {
        const std::filesystem::path file = configuration / version / "settings.ini";
        const QSettings settings(QFile::decodeName(file.c_str()), QSettings::IniFormat);
        const QVariant animates = settings.value(QStringLiteral("Settings/gtk-enable-animations"));
        if (animates.isValid())
            return animates.toBool();
    }
    return true;
}

} // namespace

DesktopMotion::DesktopMotion(const QDBusConnection& sessionBus,
                             const std::filesystem::path& configuration)
    : bus(sessionBus),
      gtk(!gtkAnimates(configuration)) {
    // Without its type known, nothing would be connected.
    qDBusRegisterMetaType<QDBusVariant>();
    bus.connect(name, path, portal, QStringLiteral("SettingChanged"), this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    ask(appearanceGroup, reducedMotionKey);
    ask(interfaceGroup, animationsKey);
}

bool DesktopMotion::isReduced() const {
    if (!appearance && !interface)
        return gtk;
    return appearance.value_or(false) || interface.value_or(false);
}

void DesktopMotion::settingChanged(const QString& group, const QString& key,
                                   const QDBusVariant& value) {
    const QVariant plain = unwrapped(value.variant());
    if (group == appearanceGroup && key == reducedMotionKey)
        appearance = plain.toUInt() == 1;
    else if (group == interfaceGroup && key == animationsKey &&
             plain.metaType() == QMetaType::fromType<bool>())
        interface = !plain.toBool();
}

void DesktopMotion::ask(const QString& group, const QString& key) {
    QDBusMessage call = QDBusMessage::createMethodCall(name, path, portal, QStringLiteral("Read"));
    call << group << key;
    auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer, group, key] {
        answer->deleteLater();
        const QDBusPendingReply<QDBusVariant> value = *answer;
        if (!value.isError())
            settingChanged(group, key, value.value());
    });
}

} // namespace tervale
