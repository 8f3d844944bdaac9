#pragma once

#include <QFont>
#include <QPainter>
#include <QRectF>
#include <QString>

namespace tervale {

/// Text whose digits all take the same width, so that a number does not tremble while it changes.

/// Whether each digit gets a cell. Text of other scripts' digits, or written from the right, is
/// left to the text engine.
bool hasDigitCells(const QString& text);
/// The width of `text` in logical pixels.
qreal tabularTextWidth(const QFont& font, const QString& text);
/// Paints one line of `text` in the painter's pen, aligned within `bounds`.
void paintTabularText(QPainter& painter, const QRectF& bounds, Qt::Alignment alignment,
                      const QFont& font, const QString& text);

} // namespace tervale
