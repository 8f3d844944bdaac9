#include "TervaleWindow/Accessibility/AccessibleGauge.h"

#include "TervaleWindow/Accessibility/AccessibleReading.h"
#include "TervaleWindow/Gauges/FanDial.h"
#include "TervaleWindow/Gauges/ThermalBar.h"

namespace tervale {

AccessibleGauge::AccessibleGauge(FanDial& dial) : AccessibleGauge(dial, dial) {}

AccessibleGauge::AccessibleGauge(ThermalBar& bar) : AccessibleGauge(bar, bar) {}

AccessibleGauge::AccessibleGauge(QWidget& widget, const Gauge& described)
    : QAccessibleWidget(&widget, QAccessible::ProgressBar),
      gauge(described) {}

void* AccessibleGauge::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QString AccessibleGauge::text(QAccessible::Text kind) const {
    return kind == QAccessible::Value ? gauge.reading().text : QAccessibleWidget::text(kind);
}

QAccessible::State AccessibleGauge::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = true;
    return state;
}

QVariant AccessibleGauge::currentValue() const {
    const GaugeReading reading = gauge.reading();
    return accessibleReading(reading.value, reading.text);
}

QVariant AccessibleGauge::minimumValue() const {
    return gauge.reading().range.lower;
}

QVariant AccessibleGauge::maximumValue() const {
    return gauge.reading().range.upper;
}

} // namespace tervale
