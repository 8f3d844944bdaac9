#include "TervaleWindow/Style/WindowStyle.h"

#include "TervaleWindow/Appearance/Fonts.h"
#include "TervaleWindow/Appearance/Motion.h"
#include "TervaleWindow/Style/ButtonPainting.h"
#include "TervaleWindow/Style/ControlPainting.h"
#include "TervaleWindow/Style/FieldPainting.h"
#include "TervaleWindow/Style/FocusRing.h"
#include "TervaleWindow/Style/MenuPainting.h"
#include "TervaleWindow/Style/MenuRowDelegate.h"
#include "TervaleWindow/Style/ScrollBarPainting.h"
#include "TervaleWindow/Style/SliderPainting.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QScrollBar>

#include <algorithm>

namespace tervale {

namespace {

MenuRow menuRow(const QStyleOptionMenuItem& option) {
    MenuRow row;
    row.text = option.text.section(u'\t', 0, 0);
    row.shortcut = option.text.section(u'\t', 1, 1);
    row.isSeparator = option.menuItemType == QStyleOptionMenuItem::Separator;
    row.isChecked = option.checked;
    row.isHighlighted = option.state & QStyle::State_Selected;
    row.isEnabled = option.state & QStyle::State_Enabled;
    row.hasSubmenu = option.menuItemType == QStyleOptionMenuItem::SubMenu;
    row.hasCheckColumn = option.menuHasCheckableItems;
    return row;
}

QSize menuRowSize(const QStyleOptionMenuItem& option) {
    const MenuRow row = menuRow(option);
    if (row.isSeparator)
        return {menuRowHeight, menuSeparatorHeight};
    const QFontMetrics metrics(option.font);
    const int shortcut =
        row.shortcut.isEmpty() ? 0 : metrics.horizontalAdvance(row.shortcut) + 2 * menuRowHeight;
    return {metrics.size(Qt::TextShowMnemonic, row.text).width() + menuRowChrome(row) + shortcut +
                1,
            std::max(menuRowHeight, metrics.height() + 6)};
}

SliderLayout layoutOf(const QStyleOptionSlider& option) {
    const int range = option.maximum - option.minimum;
    const double fraction = range > 0 ? double(option.sliderPosition - option.minimum) / range : 0;
    return sliderLayout(option.rect, fraction,
                        option.upsideDown ? Qt::RightToLeft : Qt::LeftToRight);
}

void paintSliderOf(QPainter& painter, const QStyleOptionSlider& option, const QWidget* widget) {
    painter.save();
    const bool enabled = option.state & QStyle::State_Enabled;
    const bool ring = widget && hasKeyboardFocus(*widget);
    paintFaded(painter, option.rect, enabled ? Availability::available : Availability::unavailable,
               [&](QPainter& layer) {
                   paintSlider(layer, layoutOf(option), Colors::of(option.palette),
                               ring ? KnobRing::shown : KnobRing::none);
               });
    painter.restore();
}

/// The list may be wider than its button, so that no name is cut off.
QRect listRect(const QStyleOption& option, const QWidget* widget) {
    QRect rect = option.rect;
    const auto* comboBox = qobject_cast<const QComboBox*>(widget);
    if (!comboBox)
        return rect;
    const int list = comboBox->view()->sizeHintForColumn(0) + 2 * menuMargin;
    const int widest = 480;
    const QRect wide(rect.left(), rect.top(),
                     std::max(rect.width(), std::min(list + scrollBarExtent, widest)),
                     rect.height());
    return QStyle::visualRect(option.direction, rect, wide);
}

/// The list looks as a menu does.
void useMenuRows(QComboBox& popUp) {
    popUp.setItemDelegate(new MenuRowDelegate(&popUp));
    // The panel around the list shines through.
    QAbstractItemView& list = *popUp.view();
    list.setFrameShape(QFrame::NoFrame);
    list.setAutoFillBackground(false);
    list.viewport()->setAutoFillBackground(false);
}

bool isHorizontalSlider(const QStyleOptionSlider* option) {
    return option && option->orientation == Qt::Horizontal;
}

QIcon clearIcon() {
    static const QIcon icon(new ClearIconEngine);
    return icon;
}

} // namespace

WindowStyle::WindowStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void WindowStyle::polish(QApplication* application) {
    QProxyStyle::polish(application);
    QApplication::setFont(systemFont(fontSize::body));
    QApplication::setFont(systemFont(fontSize::body, QFont::Medium), "QPushButton");
}

void WindowStyle::polish(QPalette& palette) {
    QProxyStyle::polish(palette);
    // Not every desktop says how a field asks for input, or it says so for another scheme.
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        QColor faint = palette.color(group, QPalette::Text);
        faint.setAlphaF(faint.alphaF() * 0.5f);
        palette.setColor(group, QPalette::PlaceholderText, faint);
    }
}

void WindowStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    FocusRing::shared().watchStandardWidget(*widget);
    if (FloatingPanels::isPanel(widget))
        panels.prepare(widget);
    if (auto* popUp = qobject_cast<QComboBox*>(widget))
        useMenuRows(*popUp);
    // The contents shine through beside the thumb.
    if (qobject_cast<QScrollBar*>(widget))
        widget->setAttribute(Qt::WA_OpaquePaintEvent, false);
}

void WindowStyle::unpolish(QWidget* widget) {
    FocusRing::shared().unwatch(*widget);
    QProxyStyle::unpolish(widget);
}

void WindowStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                QPainter* painter, const QWidget* widget) const {
    if (element == PE_PanelLineEdit) {
        if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option))
            paintField(*painter, *frame, widget);
    } else if (element == PE_PanelMenu) {
        paintMenuPanel(*painter, option->rect, Colors::of(option->palette));
    } else if (element == PE_PanelTipLabel) {
        paintToolTip(*painter, *option);
    } else if (element != PE_FrameMenu && element != PE_FrameFocusRect) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void WindowStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    const auto* comboBox = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element == CE_PushButton && button) {
        paintPushButton(*painter, *button);
    } else if (element == CE_ComboBoxLabel && comboBox) {
        paintComboBoxLabel(*painter, *comboBox);
    } else if (element == CE_MenuItem && item) {
        paintMenuRow(*painter, item->rect, menuRow(*item), item->font, Colors::of(item->palette),
                     item->direction);
    } else if (element == CE_ShapedFrame && FloatingPanels::isPanel(widget)) {
        paintMenuPanel(*painter, option->rect, Colors::of(option->palette));
    } else if (element != CE_MenuEmptyArea) {
        QProxyStyle::drawControl(element, option, painter, widget);
    }
}

void WindowStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                     QPainter* painter, const QWidget* widget) const {
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    const auto* comboBox = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    if (control == CC_Slider && isHorizontalSlider(slider))
        paintSliderOf(*painter, *slider, widget);
    else if (control == CC_ScrollBar && slider)
        paintScrollBar(*painter, *slider);
    else if (control == CC_ComboBox && comboBox)
        paintComboBox(*painter, *comboBox);
    else if (control == CC_SpinBox)
        paintSpinBox(*painter, *option);
    else
        QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect WindowStyle::subElementRect(SubElement element, const QStyleOption* option,
                                  const QWidget* widget) const {
    if (element == SE_LineEditContents)
        return fieldContents(*option, widget);
    if (element == SE_ShapedFrameContents && FloatingPanels::isPanel(widget))
        return option->rect.adjusted(menuMargin, menuMargin, -menuMargin, -menuMargin);
    return QProxyStyle::subElementRect(element, option, widget);
}

QRect WindowStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                  SubControl subControl, const QWidget* widget) const {
    const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control == CC_ComboBox && subControl == SC_ComboBoxListBoxPopup)
        return listRect(*option, widget);
    if (control == CC_ComboBox && subControl == SC_ComboBoxEditField)
        return popUpLayout(option->rect, option->direction).text;
    if (control == CC_ComboBox && subControl == SC_ComboBoxArrow)
        return popUpLayout(option->rect, option->direction).chevrons;
    if (control == CC_SpinBox)
        return spinBoxRect(*option, subControl);
    if (control == CC_Slider && isHorizontalSlider(slider))
        return sliderPart(layoutOf(*slider), subControl);
    if (control == CC_ScrollBar && slider) {
        if (subControl == SC_ScrollBarSlider)
            return scrollBarThumb(*slider);
        if (subControl == SC_ScrollBarSubPage || subControl == SC_ScrollBarAddPage)
            return scrollBarPage(*slider, subControl);
        return subControl == SC_ScrollBarGroove ? option->rect : QRect();
    }
    return QProxyStyle::subControlRect(control, option, subControl, widget);
}

QSize WindowStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                    const QSize& contents, const QWidget* widget) const {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (type == CT_PushButton && button)
        return pushButtonSize(*button);
    if (type == CT_ComboBox)
        return {popUpWidth(contents.width()), std::max(buttonHeight, contents.height() + 8)};
    if (type == CT_LineEdit)
        return fieldSize(contents);
    if (type == CT_SpinBox)
        return spinBoxSize(contents, option->fontMetrics);
    if (type == CT_MenuItem && item)
        return menuRowSize(*item);
    return QProxyStyle::sizeFromContents(type, option, contents, widget);
}

int WindowStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                             const QWidget* widget) const {
    // Every metric that is not the window's own is the base style's.
    switch (static_cast<int>(metric)) {
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return menuMargin;
    case PM_MenuPanelWidth:
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
        return 0;
    case PM_ScrollBarExtent:
        return scrollBarExtent;
    case PM_ScrollView_ScrollBarOverlap:
        return widget && FloatingPanels::isPanel(widget->window()) ? 0 : scrollBarExtent;
    case PM_ScrollBarSliderMin:
        return 32;
    case PM_SliderLength:
    case PM_SliderControlThickness:
        return static_cast<int>(sliderKnob);
    case PM_SliderThickness:
        return static_cast<int>(sliderKnob + 2 * sliderMargin);
    case PM_LineEditIconSize:
        return searchIconSide;
    case PM_LineEditIconMargin:
        return searchIconMargin;
    case PM_ToolTipLabelFrameWidth:
        return 5;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int WindowStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                           QStyleHintReturn* result) const {
    switch (static_cast<int>(hint)) {
    case SH_Menu_SpaceActivatesItem:
        return 1;
    case SH_EtchDisabledText:
    case SH_ComboBox_Popup: // the list opens below, as long as it may be, and scrolls
    case SH_ScrollBar_Transient:
    case SH_UnderlineShortcut:
        return 0;
    case SH_ComboBox_PopupFrameStyle:
        return static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Plain);
    case SH_ToolTipLabel_Opacity:
        return 255;
    case SH_Widget_Animate:
    case SH_Widget_Animation_Duration:
        if (reducedMotion())
            return 0;
        [[fallthrough]];
    default:
        return QProxyStyle::styleHint(hint, option, widget, result);
    }
}

QIcon WindowStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                                const QWidget* widget) const {
    return icon == SP_LineEditClearButton ? clearIcon()
                                          : QProxyStyle::standardIcon(icon, option, widget);
}

} // namespace tervale
