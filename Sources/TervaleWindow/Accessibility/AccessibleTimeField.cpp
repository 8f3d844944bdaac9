#include "TervaleWindow/Accessibility/AccessibleTimeField.h"

#include "TervaleWindow/Accessibility/AccessibleReading.h"
#include "TervaleWindow/Controls/TimeField.h"

namespace tervale {

AccessibleTimeField::AccessibleTimeField(TimeField& described)
    : QAccessibleWidget(&described, QAccessible::SpinBox) {}

void* AccessibleTimeField::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QString AccessibleTimeField::text(QAccessible::Text kind) const {
    return kind == QAccessible::Value ? field()->text() : QAccessibleWidget::text(kind);
}

QStringList AccessibleTimeField::actionNames() const {
    QStringList names = QAccessibleWidget::actionNames();
    if (field()->isEnabled())
        names << increaseAction() << decreaseAction();
    return names;
}

void AccessibleTimeField::doAction(const QString& name) {
    if (name == increaseAction() && field()->isEnabled())
        field()->stepUp();
    else if (name == decreaseAction() && field()->isEnabled())
        field()->stepDown();
    else
        QAccessibleWidget::doAction(name);
}

QVariant AccessibleTimeField::currentValue() const {
    return accessibleReading(field()->minuteOfDay(), field()->text());
}

QVariant AccessibleTimeField::minimumValue() const {
    return 0;
}

QVariant AccessibleTimeField::maximumValue() const {
    return TimeField::minutesPerDay - 1;
}

QVariant AccessibleTimeField::minimumStepSize() const {
    return 1;
}

TimeField* AccessibleTimeField::field() const {
    return static_cast<TimeField*>(widget());
}

} // namespace tervale
