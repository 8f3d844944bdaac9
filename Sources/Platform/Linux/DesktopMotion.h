#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>

#include <filesystem>
#include <optional>

namespace tervale {

/// Whether the user asked the desktop for less motion, and asks again for nothing: the desktop
/// tells of each change. Its portal is asked without waiting for the answer.
///
/// | part      | value                                                                   |
/// |-----------|-------------------------------------------------------------------------|
/// | name      | org.freedesktop.portal.Desktop                                          |
/// | path      | /org/freedesktop/portal/desktop                                         |
/// | interface | org.freedesktop.portal.Settings                                         |
/// | Read      | (namespace, key) answers the value as a variant, perhaps within another |
/// | signal    | SettingChanged(namespace, key, value)                                   |
///
/// | namespace                   | key               | less motion |
/// |-----------------------------|-------------------|-------------|
/// | org.freedesktop.appearance  | reduced-motion    | 1           |
/// | org.gnome.desktop.interface | enable-animations | false       |
///
/// Either of them will do. Where the desktop has neither, the file of GTK's settings tells. Main
/// thread.
class DesktopMotion final : public QObject {
    Q_OBJECT

  public:
    /// `configuration` is the user's configuration folder.
    DesktopMotion(const QDBusConnection& sessionBus, const std::filesystem::path& configuration);

    bool isReduced() const;

  public slots: // NOLINT(readability-redundant-access-specifiers)
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

  private:
    void ask(const QString& group, const QString& key);

    QDBusConnection bus;
    /// Nothing where the desktop has no such setting.
    std::optional<bool> appearance;
    std::optional<bool> interface;
    /// Of GTK's file, as it was at the start.
    bool gtk = false;
};

} // namespace tervale
