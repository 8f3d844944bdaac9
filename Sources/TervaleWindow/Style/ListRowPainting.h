#pragma once

#include <QPainter>
#include <QStyleOptionViewItem>

namespace tervale {

/// How the window's lists of things to choose from draw a row.

/// The accent colour under the row that is chosen, and a ring on the one that the keyboard is at.
/// Switches antialiasing on.
void paintListRowGround(QPainter& painter, const QRect& ground, const QStyleOptionViewItem& row);
/// What is drawn on the ground: white on the accent colour, elsewhere `usual`.
QColor listRowForeground(const QStyleOptionViewItem& row, const QColor& usual);
/// One line, shortened where it is too long.
void paintListRowText(QPainter& painter, const QRect& bounds, const QString& text,
                      const QFont& font, const QStyleOptionViewItem& row);

} // namespace tervale
