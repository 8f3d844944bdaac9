#include "TervaleWindow/Accessibility/AccessibleMenuButton.h"

#include <QMenu>
#include <QPushButton>

namespace tervale {

AccessibleMenuButton::AccessibleMenuButton(QPushButton& button) : QAccessibleWidget(&button) {}

QAccessible::Role AccessibleMenuButton::role() const {
    return button()->menu() ? QAccessible::ButtonMenu : QAccessible::Button;
}

QString AccessibleMenuButton::text(QAccessible::Text kind) const {
    if (kind == QAccessible::Description)
        return widget()->accessibleDescription();
    const QString given = QAccessibleWidget::text(kind);
    return kind == QAccessible::Name && given.isEmpty() ? button()->text() : given;
}

QAccessible::State AccessibleMenuButton::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.pressed = button()->isDown();
    state.hasPopup = state.expandable = button()->menu() != nullptr;
    state.expanded = button()->menu() && button()->menu()->isVisible();
    return state;
}

int AccessibleMenuButton::childCount() const {
    return button()->menu() ? 1 : 0;
}

QAccessibleInterface* AccessibleMenuButton::child(int index) const {
    QMenu* menu = button()->menu();
    if (!menu || index != 0)
        return nullptr;
    // An item that is chosen by its own action would leave the menu open.
    QObject::connect(menu, &QMenu::triggered, menu, &QMenu::hide, Qt::UniqueConnection);
    return QAccessible::queryAccessibleInterface(menu);
}

int AccessibleMenuButton::indexOfChild(const QAccessibleInterface* child) const {
    return child && button()->menu() && child->object() == button()->menu() ? 0 : -1;
}

QStringList AccessibleMenuButton::actionNames() const {
    QStringList names;
    if (button()->isEnabled() && button()->menu())
        names << showMenuAction();
    if (button()->isEnabled())
        names << pressAction();
    return names + QAccessibleWidget::actionNames();
}

void AccessibleMenuButton::doAction(const QString& name) {
    if (name != showMenuAction() && name != pressAction())
        QAccessibleWidget::doAction(name);
    else if (button()->menu())
        toggleMenu();
    else
        button()->click();
}

void AccessibleMenuButton::toggleMenu() {
    QMenu* menu = button()->menu();
    if (menu->isVisible()) {
        menu->hide();
        return;
    }
    if (!button()->isEnabled())
        return;
    const QRect place(button()->mapToGlobal(QPoint()), button()->size());
    const bool fromRight = button()->layoutDirection() == Qt::RightToLeft;
    const int left = fromRight ? place.right() + 1 - menu->sizeHint().width() : place.left();
    menu->popup({left, place.bottom() + 1});
}

QPushButton* AccessibleMenuButton::button() const {
    return static_cast<QPushButton*>(widget());
}

} // namespace tervale
