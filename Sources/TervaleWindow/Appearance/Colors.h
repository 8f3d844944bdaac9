#pragma once

#include <QColor>
#include <QPalette>

#include <functional>
#include <optional>

namespace tervale {

/// The roles that the window draws with, taken from a palette, so that light, dark and high
/// contrast follow the running system.
struct Colors {
    /// Whether text is lighter than what it stands on.
    bool dark = false;
    /// Whether the user asked for more contrast: what the system says, or, where it cannot be
    /// asked, whether the palette is black and white.
    bool highContrast = false;
    QColor window;
    QColor sidebar;
    QColor card;
    /// Separators and the borders of cards.
    QColor line;
    QColor label;
    QColor secondary;
    /// Grooves, and whatever lies behind an unselected control.
    QColor quaternary;
    QColor control;
    QColor controlLine;
    /// Text and symbols of problems.
    QColor warning;
    /// The ground of a plot.
    QColor plot;
    /// The accent colour as text and thin symbols, readable on the window's ground.
    QColor accentLabel;

    static Colors of(const QPalette& palette);

    /// The colour of a figure of so many °C: the thermal ramp's, of which some is pale. In high
    /// contrast it is the label's, and a bar or symbol beside the figure keeps the ramp.
    QColor figure(double celsius) const;
};

/// Asks `query` whether the user wants more contrast: now, and whenever the system changes the
/// application's palette or its theme. With none, and where it answers nothing, the palette tells.
/// Needs the application object.
void askForHighContrast(std::function<std::optional<bool>()> query);

/// The palettes that the window draws with where the desktop brings none of its own.
QPalette lightPalette();
QPalette darkPalette();
/// The same in black and white, for who asked for more contrast.
QPalette highContrastLightPalette();
QPalette highContrastDarkPalette();

} // namespace tervale
