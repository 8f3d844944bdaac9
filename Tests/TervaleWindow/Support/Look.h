#pragma once

#include <QPalette>

namespace tervale {

/// What the window is drawn in: its own style, as on Linux, or one of the toolkit's that it knows
/// nothing of with the colours of a Mac, as on one.
enum class Look { own, stock };
enum class Scheme { light, dark };

/// The one that TERVALE_LOOK names ("own" or "stock"), else the window's own.
Look lookUnderTest();
/// Gives the application this style and its light palette.
void wear(Look look);

QPalette paletteOf(Look look, Scheme scheme);
/// Those of the look under test.
QPalette lightLook();
QPalette darkLook();

} // namespace tervale
