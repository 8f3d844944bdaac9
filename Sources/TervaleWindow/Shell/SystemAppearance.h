#pragma once

#include "Platform/Platform.h"

#include <QImage>

#include <functional>

class QApplication;

namespace tervale {

/// Who draws push buttons, pop-ups, fields, scroll bars, sliders and menus: the system's own style,
/// so that accent colour, focus rings, contrast and animation are the system's, or the window's.
enum class ControlDrawing { system, window };
/// The system on a Mac; elsewhere no system has a look that is worth keeping.
ControlDrawing controlDrawing();

/// Tells what the desktop is to look like, and calls `changed` whenever that is something else;
/// null where no desktop can be asked.
using DesktopLookSource =
    std::function<std::function<DesktopLook()>(std::function<void()> changed)>;

/// Lets the window look like the desktop it runs on, with the desktop's symbols where it has some.
/// Where the system draws the controls, style, palette and fonts stay the system's. Elsewhere it
/// takes the toolkit's palette where the desktop gave it one, else a palette of the window's own in
/// the scheme and the contrast that the desktop asks for, light where it asks for none, and follows
/// them; and sets the font of the user interface.
void useSystemAppearance(QApplication& application, ControlDrawing drawing = controlDrawing(),
                         const DesktopLookSource& desktop = &makeDesktopLook);

/// The mask as an image's opacity.
QImage imageOf(const SymbolMask& mask);

} // namespace tervale
