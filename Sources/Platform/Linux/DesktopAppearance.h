#pragma once

#include "Platform/DesktopLook.h"
#include "Platform/Linux/DesktopSettings.h"

#include <QObject>

#include <functional>
#include <memory>

namespace tervale {

/// What the user asked the desktop to look like, now and after each change.
///
/// | group                            | key           | value                            |
/// |----------------------------------|---------------|----------------------------------|
/// | org.freedesktop.appearance       | color-scheme  | 1 dark, 2 light, 0 no preference |
/// | org.freedesktop.appearance       | contrast      | 1 high                           |
/// | org.gnome.desktop.a11y.interface | high-contrast | true                             |
/// | org.gnome.desktop.interface      | gtk-theme     | a name, as "Adwaita-dark"        |
///
/// Whoever asks for high contrast gets it. A preferred scheme goes before the theme's name, and
/// that before the one in GTK's file. Main thread.
class DesktopAppearance final : public QObject {
    Q_OBJECT

  public:
    /// Calls `changed` once for each change of the look.
    DesktopAppearance(std::shared_ptr<const DesktopSettings> settings,
                      std::function<void()> changed);

    const DesktopLook& look() const { return current; }

  private:
    void follow();

    std::shared_ptr<const DesktopSettings> settings;
    std::function<void()> tell;
    DesktopLook current;
};

} // namespace tervale
