#pragma once

#include "Platform/SymbolMask.h"

#include <QImage>

class QApplication;

namespace tervale {

/// Lets the window look like the desktop it runs on: takes the desktop's palette where there is
/// one, and the window's own light palette elsewhere; takes the desktop's symbols where it has
/// some; sets the font of the user interface.
void useSystemAppearance(QApplication& application);

/// The mask as an image's opacity.
QImage imageOf(const SymbolMask& mask);

} // namespace tervale
