#pragma once

#include "TervaleWindow/Profiles/CurveDrawing.h"

#include <QPainter>
#include <QPalette>
#include <QRectF>

namespace tervale {

/// Whether the points that the keys act on are marked.
enum class KeyFocus { absent, present };

/// Paints the plot of a curve with the palette's colours. `bounds` is the canvas.
void paintCurve(QPainter& painter, const CurveDrawing& drawing, const QRectF& bounds,
                const QPalette& palette, KeyFocus focus);

} // namespace tervale
