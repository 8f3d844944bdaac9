#include "TervaleWindow/Accessibility/AccessibleChoice.h"

#include <QAbstractButton>

namespace tervale {

AccessibleChoice::AccessibleChoice(QAbstractButton& button, QAccessible::Role role)
    : QAccessibleWidget(&button, role) {}

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

} // namespace tervale
