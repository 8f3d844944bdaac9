#include "TervaleWindow/Accessibility/AccessibleTimeField.h"

#include "TervaleWindow/Accessibility/AccessibleReading.h"
#include "TervaleWindow/Controls/TimeField.h"

#include <QLineEdit>

#include <cmath>

namespace tervale {

AccessibleTimeField::AccessibleTimeField(TimeField& described)
    : QAccessibleWidget(&described, QAccessible::SpinBox) {}

void* AccessibleTimeField::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface*>(this);
    if (type == QAccessible::TextInterface || type == QAccessible::EditableTextInterface) {
        auto* typed = field()->findChild<QLineEdit*>();
        return QAccessible::queryAccessibleInterface(typed)->interface_cast(type);
    }
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

void AccessibleTimeField::setCurrentValue(const QVariant& value) {
    bool isNumber = false;
    const double minute = std::round(value.toDouble(&isNumber));
    if (isNumber && field()->isEnabled() && minute >= 0 && minute < TimeField::minutesPerDay)
        field()->chooseMinuteOfDay(static_cast<int>(minute));
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
