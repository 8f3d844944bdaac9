#pragma once

#include "TervaleWindow/Appearance/Symbol.h"

#include <QPainterPath>

namespace tervale {

/// The side of the square that every symbol is drawn in, y downwards.
inline constexpr qreal symbolBox = 24;

/// The symbol as one area to be filled, so that a translucent colour shows no crossings.
/// `lineWidth` is in units of the square.
QPainterPath symbolPath(Symbol symbol, qreal lineWidth);

} // namespace tervale
