#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QHash>
#include <QObject>
#include <QVariant>

#include <filesystem>

namespace tervale {

/// The groups of settings that the desktop is asked for.
namespace desktopGroup {
inline constexpr QLatin1String appearance("org.freedesktop.appearance");
inline constexpr QLatin1String interface("org.gnome.desktop.interface");
inline constexpr QLatin1String accessibility("org.gnome.desktop.a11y.interface");
} // namespace desktopGroup

/// What the user set in the desktop, for all who want to know. Its portal is asked once, for all
/// groups and without waiting for the answer, and tells of each change.
///
/// | part      | value                                                                     |
/// |-----------|---------------------------------------------------------------------------|
/// | name      | org.freedesktop.portal.Desktop                                            |
/// | path      | /org/freedesktop/portal/desktop                                           |
/// | interface | org.freedesktop.portal.Settings                                           |
/// | ReadAll   | (groups) answers key to value, as variants perhaps within others, a group |
/// | signal    | SettingChanged(group, key, value)                                         |
///
/// Beside it stand the files of GTK's settings, as they were at the start. Main thread.
class DesktopSettings final : public QObject {
    Q_OBJECT

  public:
    /// `configuration` is the user's configuration folder.
    DesktopSettings(const QDBusConnection& sessionBus, const std::filesystem::path& configuration);

    /// The desktop's value; invalid while it has not answered, or where it has none.
    QVariant value(const QString& group, const QString& key) const;
    /// GTK's, such as of "gtk-theme-name": that of the newest version which has one.
    QVariant gtkValue(const QString& key) const;

  signals:
    /// Some of the desktop's values, perhaps to what they were.
    void changed();

  public slots: // NOLINT(readability-redundant-access-specifiers)
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

  private:
    void takeAll(const QDBusMessage& answer);
    bool take(const QString& group, const QString& key, const QVariant& value);

    QDBusConnection bus;
    /// By group and key, with a slash between them.
    QHash<QString, QVariant> values;
    QVariantMap gtk;
};

} // namespace tervale
