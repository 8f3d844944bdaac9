#pragma once

#include "TervaleWindow/Gauges/Gauge.h"

#include <QAccessibleWidget>

namespace tervale {

/// A gauge as assistive technology sees it: a text that holds its name and its reading. Not a value
/// between limits, which a screen reader would speak of by itself and offer to raise.
class AccessibleGauge final : public QAccessibleWidget {
  public:
    template <class Widget>
    explicit AccessibleGauge(Widget& widget) : AccessibleGauge(widget, widget) {}

    QString text(QAccessible::Text kind) const override;
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }

  private:
    AccessibleGauge(QWidget& widget, const Gauge& described);

    const Gauge& gauge;
};

} // namespace tervale
