#pragma once

#include <QIcon>

namespace tervale {

/// The name by which a Linux desktop knows the application: that of its .desktop file, which tells
/// of the same icon.
inline constexpr const char* desktopEntry = "com.velnor.tervale.window";

/// The application's icon, for the desktops that ask a window for it. Null on a Mac, which shows
/// the bundle's.
QIcon applicationIcon();

} // namespace tervale
