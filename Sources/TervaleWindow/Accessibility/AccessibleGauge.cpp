#include "TervaleWindow/Accessibility/AccessibleGauge.h"

namespace tervale {

AccessibleGauge::AccessibleGauge(QWidget& widget, const Gauge& described)
    : QAccessibleWidget(&widget, QAccessible::StaticText),
      gauge(described) {}

QString AccessibleGauge::text(QAccessible::Text kind) const {
    QString given = QAccessibleWidget::text(kind);
    if (kind != QAccessible::Name)
        return given;
    return given.isEmpty() ? gauge.reading() : QStringLiteral("%1, %2").arg(given, gauge.reading());
}

} // namespace tervale
