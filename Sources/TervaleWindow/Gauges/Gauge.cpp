#include "TervaleWindow/Gauges/Gauge.h"

#include <QAccessible>
#include <QWidget>

namespace tervale {

void tellReading(QWidget& gauge) {
    // Not a change of value: screen readers speak of those, and a gauge ticks.
    QAccessibleEvent event(&gauge, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

} // namespace tervale
