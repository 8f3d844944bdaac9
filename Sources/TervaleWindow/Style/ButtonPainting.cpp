#include "TervaleWindow/Style/ButtonPainting.h"

#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Style/ControlPainting.h"

#include <QStyle>

#include <algorithm>

namespace tervale {

namespace {

constexpr int line = 1;
constexpr int buttonPadding = 12;
constexpr int popUpLeading = 10;
constexpr int popUpTrailing = 6;
constexpr int popUpGap = 10;
constexpr int chevronSide = 16;

bool opensMenu(const QStyleOptionButton& option) {
    return option.features & QStyleOptionButton::HasMenu;
}

bool isProminent(const QStyleOptionButton& option) {
    return option.features & QStyleOptionButton::DefaultButton;
}

Availability availability(const QStyleOption& option) {
    return option.state & QStyle::State_Enabled ? Availability::available
                                                : Availability::unavailable;
}

void shadeWhilePressed(QPainter& painter, const QStyleOption& option, const Colors& colors) {
    if (option.state & (QStyle::State_Sunken | QStyle::State_On))
        paintBox(painter, option.rect, controlRadius, pressedShade(colors), Qt::transparent);
}

void paintText(QPainter& painter, const QRect& place, Qt::Alignment alignment,
               const QStyleOption& option, const QString& text) {
    const QString shown =
        option.fontMetrics.elidedText(text, Qt::ElideRight, place.width(), Qt::TextShowMnemonic);
    painter.drawText(
        place,
        static_cast<int>(QStyle::visualAlignment(option.direction, alignment) | Qt::AlignVCenter) |
            Qt::TextHideMnemonic,
        shown);
}

void paintMenuButton(QPainter& painter, const QStyleOptionButton& option, const Colors& colors) {
    const PopUpLayout layout = popUpLayout(option.rect, option.direction);
    paintControlBox(painter, option.rect, colors);
    shadeWhilePressed(painter, option, colors);
    paintChevrons(painter, layout.chevrons);
    painter.setPen(colors.label);
    paintText(painter, layout.text, Qt::AlignLeading, option, option.text);
}

void paintPlainButton(QPainter& painter, const QStyleOptionButton& option, const Colors& colors) {
    if (isProminent(option))
        paintBox(painter, option.rect, controlRadius, Theme::accent(), Qt::transparent);
    else
        paintControlBox(painter, option.rect, colors);
    shadeWhilePressed(painter, option, colors);
    painter.setPen(isProminent(option) ? QColor(Qt::white) : colors.label);
    paintText(painter, option.rect.adjusted(line + 4, 0, -line - 4, 0), Qt::AlignHCenter, option,
              option.text);
}

} // namespace

PopUpLayout popUpLayout(const QRect& box, Qt::LayoutDirection direction) {
    const QRect chevrons(box.right() + 1 - line - popUpTrailing - chevronSide,
                         box.top() + (box.height() - chevronSide) / 2, chevronSide, chevronSide);
    QRect text = box.adjusted(line + popUpLeading, 0, 0, 0);
    text.setRight(chevrons.left() - 1 - popUpGap);
    return {QStyle::visualRect(direction, box, text), QStyle::visualRect(direction, box, chevrons)};
}

int popUpWidth(int width) {
    return width + 2 * line + popUpLeading + popUpGap + chevronSide + popUpTrailing;
}

void paintPushButton(QPainter& painter, const QStyleOptionButton& option) {
    const Colors colors = Colors::of(option.palette);
    painter.save();
    paintFaded(painter, option.rect, availability(option), [&](QPainter& layer) {
        if (opensMenu(option))
            paintMenuButton(layer, option, colors);
        else
            paintPlainButton(layer, option, colors);
    });
    painter.restore();
}

QSize pushButtonSize(const QStyleOptionButton& option) {
    const int text = option.fontMetrics.size(Qt::TextShowMnemonic, option.text).width();
    const int width = opensMenu(option) ? popUpWidth(text) : text + 2 * (line + buttonPadding);
    return {width, std::max(buttonHeight, option.fontMetrics.height() + 8)};
}

void paintComboBox(QPainter& painter, const QStyleOptionComboBox& option) {
    const Colors colors = Colors::of(option.palette);
    painter.save();
    paintFaded(painter, option.rect, availability(option), [&](QPainter& layer) {
        paintControlBox(layer, option.rect, colors);
        shadeWhilePressed(layer, option, colors);
        paintChevrons(layer, popUpLayout(option.rect, option.direction).chevrons);
    });
    painter.restore();
}

void paintComboBoxLabel(QPainter& painter, const QStyleOptionComboBox& option) {
    painter.save();
    painter.setOpacity(option.state & QStyle::State_Enabled ? 1 : disabledOpacity);
    painter.setPen(Colors::of(option.palette).label);
    const QRect place = popUpLayout(option.rect, option.direction).text;
    const QString shown =
        option.fontMetrics.elidedText(option.currentText, Qt::ElideRight, place.width());
    painter.drawText(place,
                     static_cast<int>(QStyle::visualAlignment(option.direction, Qt::AlignLeading) |
                                      Qt::AlignVCenter),
                     shown);
    painter.restore();
}

} // namespace tervale
