#include "TervaleWindow/Controls/AccessibleControls.h"

#include "TervaleWindow/Controls/ModeButton.h"
#include "TervaleWindow/Controls/PopUpButton.h"
#include "TervaleWindow/Controls/SegmentButton.h"
#include "TervaleWindow/Controls/ToggleSwitch.h"

#include <QAbstractItemView>

namespace tervale {

namespace {

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    if (auto* mode = qobject_cast<ModeButton*>(object))
        return new AccessibleChoice(mode, QAccessible::RadioButton);
    if (auto* segment = qobject_cast<SegmentButton*>(object))
        return new AccessibleChoice(segment, QAccessible::RadioButton);
    if (auto* toggle = qobject_cast<ToggleSwitch*>(object))
        return new AccessibleChoice(toggle, QAccessible::CheckBox);
    if (auto* popUp = qobject_cast<PopUpButton*>(object))
        return new AccessiblePopUp(popUp);
    return nullptr;
}

} // namespace

AccessibleChoice::AccessibleChoice(QAbstractButton* button, QAccessible::Role role)
    : QAccessibleWidget(button, role) {}

QString AccessibleChoice::text(QAccessible::Text kind) const {
    const QString given = QAccessibleWidget::text(kind);
    return kind == QAccessible::Name && given.isEmpty() ? button()->text() : given;
}

QAccessible::State AccessibleChoice::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = true;
    state.checked = button()->isChecked();
    state.pressed = button()->isDown();
    return state;
}

QStringList AccessibleChoice::actionNames() const {
    QStringList names;
    if (button()->isEnabled())
        names << (role() == QAccessible::CheckBox ? toggleAction() : pressAction());
    return names + QAccessibleWidget::actionNames();
}

void AccessibleChoice::doAction(const QString& name) {
    if (name == toggleAction() || name == pressAction())
        button()->click();
    else
        QAccessibleWidget::doAction(name);
}

QAbstractButton* AccessibleChoice::button() const {
    return static_cast<QAbstractButton*>(widget());
}

AccessiblePopUp::AccessiblePopUp(PopUpButton* button)
    : QAccessibleWidget(button, QAccessible::ComboBox) {}

QString AccessiblePopUp::text(QAccessible::Text kind) const {
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

PopUpButton* AccessiblePopUp::button() const {
    return static_cast<PopUpButton*>(widget());
}

void installAccessibleControls() {
    // A factory that is there already is not installed again.
    QAccessible::installFactory(makeInterface);
}

} // namespace tervale
