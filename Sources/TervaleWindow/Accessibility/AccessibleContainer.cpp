#include "TervaleWindow/Accessibility/AccessibleContainer.h"

#include "TervaleWindow/Controls/Decoration.h"

#include <QFocusFrame>

namespace tervale {

AccessibleContainer::AccessibleContainer(QWidget& container) : QAccessibleWidget(&container) {}

QAccessible::Role AccessibleContainer::role() const {
    if (widget()->isWindow())
        return QAccessible::Window;
    return widget()->focusPolicy() == Qt::NoFocus ? QAccessible::Client : QAccessible::Grouping;
}

QString AccessibleContainer::text(QAccessible::Text kind) const {
    return kind == QAccessible::Description ? widget()->accessibleDescription()
                                            : QAccessibleWidget::text(kind);
}

int AccessibleContainer::childCount() const {
    return static_cast<int>(parts().size());
}

QAccessibleInterface* AccessibleContainer::child(int index) const {
    return QAccessible::queryAccessibleInterface(parts().value(index));
}

int AccessibleContainer::indexOfChild(const QAccessibleInterface* child) const {
    return child ? static_cast<int>(parts().indexOf(qobject_cast<QWidget*>(child->object()))) : -1;
}

QWidgetList AccessibleContainer::parts() const {
    QWidgetList found;
    for (QObject* object : widget()->children()) {
        auto* part = qobject_cast<QWidget*>(object);
        if (part && !part->isWindow() && !qobject_cast<QFocusFrame*>(part) && !isDecoration(*part))
            found.push_back(part);
    }
    return found;
}

} // namespace tervale
