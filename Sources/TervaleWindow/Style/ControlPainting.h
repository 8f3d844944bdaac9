#pragma once

#include "TervaleWindow/Appearance/Colors.h"

#include <QPainter>
#include <QRectF>

#include <functional>

namespace tervale {

/// What the window's controls are drawn from.

inline constexpr qreal disabledOpacity = 0.45;
inline constexpr int controlRadius = 7;

/// A rounded box whose line runs inside its edge.
void paintBox(QPainter& painter, const QRectF& box, qreal radius, const QColor& fill,
              const QColor& line);
/// As paintBox, for a button or field in the colours of a control.
void paintControlBox(QPainter& painter, const QRectF& box, const Colors& colors);
/// Whether a control can be used, for the painters that fade it as a whole when it cannot.
enum class Availability { available, unavailable };
/// Runs `draw`; for a control that cannot be used, into a layer that is laid on faded, so that what
/// overlaps within the control does not show through.
void paintFaded(QPainter& painter, const QRect& bounds, Availability availability,
                const std::function<void(QPainter&)>& draw);
/// The breath of shade that a button takes on while it is held down.
QColor pressedShade(const Colors& colors);
/// A white disc with a soft shadow.
void paintKnob(QPainter& painter, const QRectF& disc);
/// The accent-coloured square with chevrons of a control that opens a list.
void paintChevrons(QPainter& painter, const QRectF& square);

} // namespace tervale
