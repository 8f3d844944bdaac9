#include "TervaleWindow/Accessibility/AccessiblePopUp.h"

#include "TervaleWindow/Controls/PopUpButton.h"

#include <QAbstractItemView>
#include <QGuiApplication>

namespace tervale {

ChoiceValues AccessiblePopUp::usualValues() {
    return QGuiApplication::platformName() == QLatin1String("cocoa")
               ? ChoiceValues::inValueInterface
               : ChoiceValues::inTexts;
}

AccessiblePopUp::AccessiblePopUp(PopUpButton& button, ChoiceValues usedValues)
    : QAccessibleWidget(&button, QAccessible::ComboBox),
      values(usedValues) {}

void* AccessiblePopUp::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::ValueInterface && values == ChoiceValues::inValueInterface)
        return static_cast<QAccessibleValueInterface*>(this);
    if (type == QAccessible::TextInterface && values == ChoiceValues::inTexts)
        return static_cast<QAccessibleTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QString AccessiblePopUp::text(QAccessible::Text kind) const {
    // A tool tip has the entry once more, as markup.
    if (kind == QAccessible::Description)
        return button()->accessibleDescription();
    return kind == QAccessible::Value ? button()->currentText() : QAccessibleWidget::text(kind);
}

QAccessible::State AccessiblePopUp::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.expandable = true;
    state.expanded = button()->view()->isVisible();
    state.hasPopup = true;
    return state;
}

int AccessiblePopUp::childCount() const {
    return 1;
}

QAccessibleInterface* AccessiblePopUp::child(int index) const {
    return index == 0 ? QAccessible::queryAccessibleInterface(button()->view()) : nullptr;
}

int AccessiblePopUp::indexOfChild(const QAccessibleInterface* child) const {
    return child && child->object() == button()->view() ? 0 : -1;
}

QStringList AccessiblePopUp::actionNames() const {
    QStringList names;
    if (button()->isEnabled())
        names << showMenuAction() << pressAction();
    return names + QAccessibleWidget::actionNames();
}

void AccessiblePopUp::doAction(const QString& name) {
    if (name != showMenuAction() && name != pressAction())
        QAccessibleWidget::doAction(name);
    else if (button()->view()->isVisible())
        button()->hidePopup();
    else if (button()->isEnabled())
        button()->showPopup();
}

QString AccessiblePopUp::shownText() const {
    return button()->currentText();
}

QVariant AccessiblePopUp::currentValue() const {
    return button()->currentText();
}

PopUpButton* AccessiblePopUp::button() const {
    return static_cast<PopUpButton*>(widget());
}

} // namespace tervale
