#include "TervaleWindow/Gauges/Gauge.h"

#include <QAccessible>
#include <QWidget>

namespace tervale {

void announceReading(QWidget& gauge, double value) {
    if (!QAccessible::isActive())
        return;
    QAccessibleValueChangeEvent event(&gauge, value);
    QAccessible::updateAccessibility(&event);
}

} // namespace tervale
