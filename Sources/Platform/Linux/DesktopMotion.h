#pragma once

#include "Platform/Linux/DesktopSettings.h"

#include <QObject>

#include <memory>

namespace tervale {

/// Whether the user asked the desktop for less motion, now and after each change.
///
/// | group                       | key               | less motion |
/// |-----------------------------|-------------------|-------------|
/// | org.freedesktop.appearance  | reduced-motion    | 1           |
/// | org.gnome.desktop.interface | enable-animations | false       |
///
/// Either of them will do. Where the desktop has neither, the file of GTK's settings tells. Main
/// thread.
class DesktopMotion final : public QObject {
    Q_OBJECT

  public:
    explicit DesktopMotion(std::shared_ptr<const DesktopSettings> settings);

    bool isReduced() const { return reduced; }

  private:
    void follow();

    std::shared_ptr<const DesktopSettings> settings;
    bool reduced = false;
};

} // namespace tervale
