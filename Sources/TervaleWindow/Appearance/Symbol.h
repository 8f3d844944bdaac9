#pragma once

#include <QColor>
#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QRectF>
#include <QString>

#include <functional>
#include <optional>

namespace tervale {

/// The window's symbols, by the names of the system's. They are the window's own drawings
/// unless the system's shapes are there.
enum class Symbol {
    fan,                     // "fan"
    fanSlash,                // "fan.slash"
    fanFill,                 // "fan.fill"
    thermometerMedium,       // "thermometer.medium"
    sliderHorizontal3,       // "slider.horizontal.3"
    gearshape,               // "gearshape"
    cpu,                     // "cpu"
    exclamationTriangle,     // "exclamationmark.triangle"
    exclamationTriangleFill, // "exclamationmark.triangle.fill"
    timer,                   // "timer"
    magnifyingGlass,         // "magnifyingglass"
    plus,                    // "plus"
    plusSquareOnSquare,      // "plus.square.on.square"
    minus,                   // "minus"
    minusCircle,             // "minus.circle"
    questionmarkCircle,      // "questionmark.circle"
    chevronUpDown,           // "chevron.up.chevron.down"
};

QString symbolName(Symbol symbol);

/// How wide the lines of symbols are, as a factor.
namespace symbolWeight {
inline constexpr qreal regular = 1;
inline constexpr qreal medium = 1.15;
inline constexpr qreal semibold = 1.4;
} // namespace symbolWeight

/// Draws the symbol into a square centred in `bounds`, as sharp as the painter's device allows.
/// `weight` scales the width of its lines.
void paintSymbol(QPainter& painter, Symbol symbol, const QRectF& bounds, const QColor& color,
                 qreal weight = symbolWeight::regular);

/// Draws a symbol's shape by its name: an image of that many pixels a side, of which only the
/// opacity counts; nothing for a symbol that it does not know.
using SymbolShapes =
    std::function<std::optional<QImage>(const QString& name, int side, qreal weight)>;

/// Lets the system's own shapes stand in for the window's drawings where there are such; null for
/// none. For the whole process, before anything is drawn.
void useSymbolShapes(SymbolShapes shapes);

/// The symbol in a colour, drawn anew for each size and scale that is asked for.
QIcon symbolIcon(Symbol symbol, const QColor& color, qreal weight = symbolWeight::regular);

} // namespace tervale
