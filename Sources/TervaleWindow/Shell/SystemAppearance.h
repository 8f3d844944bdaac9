#pragma once

#include "Platform/SymbolMask.h"

#include <QImage>

class QApplication;

namespace tervale {

/// Who draws push buttons, pop-ups, fields, scroll bars, sliders and menus: the system's own style,
/// so that accent colour, focus rings, contrast and animation are the system's, or the window's.
enum class ControlDrawing { system, window };
/// The system on a Mac; elsewhere no system has a look that is worth keeping.
ControlDrawing controlDrawing();

/// Lets the window look like the desktop it runs on, with the desktop's symbols where it has some.
/// Where the system draws the controls, style, palette and fonts stay the system's. Elsewhere it
/// takes the desktop's palette where there is one, else the window's own light palette, and sets
/// the font of the user interface.
void useSystemAppearance(QApplication& application, ControlDrawing drawing = controlDrawing());

/// The mask as an image's opacity.
QImage imageOf(const SymbolMask& mask);

} // namespace tervale
