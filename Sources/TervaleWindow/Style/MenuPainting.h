#pragma once

#include "TervaleWindow/Appearance/Colors.h"

#include <QFont>
#include <QPainter>
#include <QRect>
#include <QString>

namespace tervale {

/// One row of a menu or of a pop-up's list.
struct MenuRow {
    QString text;
    QString shortcut;
    bool isSeparator = false;
    bool isChecked = false;
    bool isHighlighted = false;
    bool isEnabled = true;
    bool hasSubmenu = false;
    /// Whether rows keep a column for check marks.
    bool hasCheckColumn = false;
};

/// The parts of a row, for text from left to right.
struct MenuRowLayout {
    QRect highlight;
    QRect check;
    QRect text;
    QRect arrow;

    bool operator==(const MenuRowLayout&) const = default;
};

inline constexpr int menuMargin = 5;
inline constexpr int menuRowHeight = 24;
inline constexpr int menuSeparatorHeight = 11;
inline constexpr int menuRadius = 9;

MenuRowLayout menuRowLayout(const QRect& row, const MenuRow& content);
/// The width of everything beside the text.
int menuRowChrome(const MenuRow& content);
void paintMenuRow(QPainter& painter, const QRect& row, const MenuRow& content, const QFont& font,
                  const Colors& colors, Qt::LayoutDirection direction);
void paintMenuPanel(QPainter& painter, const QRect& panel, const Colors& colors);

} // namespace tervale
