#include "TervaleWindow/Accessibility/AccessibleFractionSlider.h"

#include "TervaleWindow/Accessibility/AccessibleReading.h"
#include "TervaleWindow/Appearance/Format.h"
#include "TervaleWindow/Controls/FractionSlider.h"

#include <cmath>

namespace tervale {

AccessibleFractionSlider::AccessibleFractionSlider(FractionSlider& slider)
    : QAccessibleWidget(&slider, QAccessible::Slider) {}

void* AccessibleFractionSlider::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QString AccessibleFractionSlider::text(QAccessible::Text kind) const {
    if (kind == QAccessible::Value)
        return percent(slider()->fraction());
    return QAccessibleWidget::text(kind);
}

QVariant AccessibleFractionSlider::currentValue() const {
    const double fraction = slider()->fraction();
    return accessibleReading(std::round(fraction * 100), percent(fraction));
}

void AccessibleFractionSlider::setCurrentValue(const QVariant& value) {
    bool isNumber = false;
    const double percents = value.toDouble(&isNumber);
    if (isNumber && std::isfinite(percents) && slider()->isEnabled())
        slider()->moveAtOnce(percents / 100);
}

QVariant AccessibleFractionSlider::maximumValue() const {
    return 100.0;
}

QVariant AccessibleFractionSlider::minimumValue() const {
    return 0.0;
}

QVariant AccessibleFractionSlider::minimumStepSize() const {
    return 1.0;
}

QStringList AccessibleFractionSlider::actionNames() const {
    QStringList names = QAccessibleWidget::actionNames();
    if (slider()->isEnabled())
        names << increaseAction() << decreaseAction();
    return names;
}

void AccessibleFractionSlider::doAction(const QString& name) {
    const double step = 0.01;
    if (name == increaseAction() && slider()->isEnabled())
        slider()->moveAtOnce(slider()->fraction() + step);
    else if (name == decreaseAction() && slider()->isEnabled())
        slider()->moveAtOnce(slider()->fraction() - step);
    else
        QAccessibleWidget::doAction(name);
}

FractionSlider* AccessibleFractionSlider::slider() const {
    return static_cast<FractionSlider*>(widget());
}

} // namespace tervale
