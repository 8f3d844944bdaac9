#pragma once

#include <QColor>
#include <QIcon>
#include <QPainter>
#include <QRectF>
#include <QString>

namespace tervale {

/// The window's own vector drawings, by the names of the system's symbols.
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
    chevronUpDown,           // "chevron.up.chevron.down"
};

QString symbolName(Symbol symbol);

/// Draws the symbol into a square centred in `bounds`, as sharp as the painter's device allows.
/// `weight` scales the width of its lines.
void paintSymbol(QPainter& painter, Symbol symbol, const QRectF& bounds, const QColor& color,
                 qreal weight = 1.0);

/// The symbol in a colour, drawn anew for each size and scale that is asked for.
QIcon symbolIcon(Symbol symbol, const QColor& color, qreal weight = 1.0);

} // namespace tervale
