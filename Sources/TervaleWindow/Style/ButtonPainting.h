#pragma once

#include <QPainter>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>

namespace tervale {

/// The parts of a control that opens a list.
struct PopUpLayout {
    QRect text;
    QRect chevrons;

    bool operator==(const PopUpLayout&) const = default;
};

inline constexpr int buttonHeight = 26;

PopUpLayout popUpLayout(const QRect& box, Qt::LayoutDirection direction);
/// The width of such a control for a text that is `width` wide.
int popUpWidth(int width);

void paintPushButton(QPainter& painter, const QStyleOptionButton& option);
QSize pushButtonSize(const QStyleOptionButton& option);
void paintComboBox(QPainter& painter, const QStyleOptionComboBox& option);
void paintComboBoxLabel(QPainter& painter, const QStyleOptionComboBox& option);

} // namespace tervale
