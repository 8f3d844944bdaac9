#pragma once

#include "TervaleWindow/Appearance/Symbol.h"

#include <QImage>
#include <QRectF>
#include <QSize>

namespace tervale {

/// The side of the square that every symbol is drawn in, y downwards.
inline constexpr qreal symbolBox = 24;

/// The shape of a symbol as an image, of which only the opacity counts. `square` is where the
/// symbol's square lies in it, in pixels; `lineWidth` is in units of `symbolBox`.
QImage symbolShape(Symbol symbol, const QSize& size, const QRectF& square, qreal lineWidth);

} // namespace tervale
