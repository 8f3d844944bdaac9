#include "TervaleWindow/Controls/AccessibleFractionSlider.h"

#include "TervaleWindow/Controls/FractionSlider.h"

#include <cmath>

namespace tervale {

namespace {

QAccessibleInterface* makeInterface(const QString& className, QObject* object) {
    if (className != QLatin1String(FractionSlider::staticMetaObject.className()))
        return nullptr;
    auto* slider = qobject_cast<FractionSlider*>(object);
    return slider ? new AccessibleFractionSlider(slider) : nullptr;
}

} // namespace

AccessibleFractionSlider::AccessibleFractionSlider(FractionSlider* slider)
    : QAccessibleWidget(slider, QAccessible::Slider) {}

void* AccessibleFractionSlider::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QString AccessibleFractionSlider::text(QAccessible::Text kind) const {
    if (kind == QAccessible::Value)
        return QString::number(std::lround(slider()->fraction() * 100)) + QLatin1Char('%');
    return QAccessibleWidget::text(kind);
}

QVariant AccessibleFractionSlider::currentValue() const {
    return std::round(slider()->fraction() * 100);
}

void AccessibleFractionSlider::setCurrentValue(const QVariant& value) {
    bool isNumber = false;
    const double percent = value.toDouble(&isNumber);
    if (isNumber && std::isfinite(percent) && slider()->isEnabled())
        slider()->moveAtOnce(percent / 100);
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

void installAccessibleFractionSlider() {
    // A factory that is there already is not installed again.
    QAccessible::installFactory(makeInterface);
}

} // namespace tervale
