#pragma once

class QApplication;

namespace tervale {

/// Lets the window look like the desktop it runs on: takes the desktop's palette where there is
/// one, and the window's own light palette elsewhere; sets the font of the user interface.
void useSystemAppearance(QApplication& application);

} // namespace tervale
