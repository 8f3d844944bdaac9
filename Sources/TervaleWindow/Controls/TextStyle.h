#pragma once

#include "TervaleWindow/Appearance/Colors.h"

#include <QFont>

#include <variant>

namespace tervale {

/// How a piece of text is set: a font and the height that each of its lines takes.
struct TextStyle {
    QFont font;
    int lineHeight = 0;

    static TextStyle title();    // 15 bold
    static TextStyle heading();  // 13 bold
    static TextStyle section();  // 13 demi-bold
    static TextStyle emphasis(); // 13 medium
    static TextStyle body();     // 13
    static TextStyle callout();  // 12
    static TextStyle caption();  // 11
};

enum class TextColor { label, secondary, warning, accent };

/// The colour of a figure of so many °C.
struct ThermalColor {
    double celsius = 0;
    bool operator==(const ThermalColor&) const = default;
};

/// A role or a temperature, both of which follow the palette, or a colour of its own.
using Foreground = std::variant<TextColor, ThermalColor, QColor>;

QColor color(const Foreground& wanted, const Colors& colors);

/// What a text does that is wider than its place.
enum class Overflow {
    /// It asks its layout for the whole width.
    demand,
    elide,
    wrap,
};

} // namespace tervale
