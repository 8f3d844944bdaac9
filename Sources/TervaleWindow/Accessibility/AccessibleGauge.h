#pragma once

#include "TervaleWindow/Gauges/Gauge.h"

#include <QAccessibleWidget>

namespace tervale {

class FanDial;
class ThermalBar;

/// A gauge as assistive technology sees it: a value between limits that nobody sets.
/// The value is that of `Gauge::reading`; `announceReading` tells of changes.
class AccessibleGauge final : public QAccessibleWidget, public QAccessibleValueInterface {
  public:
    explicit AccessibleGauge(FanDial& dial);
    explicit AccessibleGauge(ThermalBar& bar);

    void* interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;

    QVariant currentValue() const override;
    void setCurrentValue(const QVariant&) override {}
    QVariant minimumValue() const override;
    QVariant maximumValue() const override;
    QVariant minimumStepSize() const override { return {}; }

  private:
    AccessibleGauge(QWidget& widget, const Gauge& described);

    const Gauge& gauge;
};

} // namespace tervale
