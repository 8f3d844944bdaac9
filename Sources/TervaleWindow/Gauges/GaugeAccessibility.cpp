#include "TervaleWindow/Gauges/GaugeAccessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QWidget>

namespace tervale {

namespace {

class GaugeInterface : public QAccessibleWidget, public QAccessibleValueInterface {
  public:
    GaugeInterface(QWidget& widget, const AccessibleGauge& described)
        : QAccessibleWidget(&widget, QAccessible::ProgressBar),
          gauge(described) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? gauge.gaugeText() : QAccessibleWidget::text(kind);
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = true;
        return state;
    }

    QVariant currentValue() const override { return gauge.gaugeReading().value; }
    void setCurrentValue(const QVariant&) override {}
    QVariant minimumValue() const override { return gauge.gaugeReading().range.lower; }
    QVariant maximumValue() const override { return gauge.gaugeReading().range.upper; }
    QVariant minimumStepSize() const override { return {}; }

  private:
    const AccessibleGauge& gauge;
};

QAccessibleInterface* gaugeInterface(const QString&, QObject* object) {
    const auto* gauge = dynamic_cast<AccessibleGauge*>(object);
    auto* widget = qobject_cast<QWidget*>(object);
    return gauge && widget ? new GaugeInterface(*widget, *gauge) : nullptr;
}

} // namespace

void makeGaugesAccessible() {
    // A factory that is there already is not installed again.
    QAccessible::installFactory(gaugeInterface);
}

void announceGaugeValue(QWidget& gauge, double value) {
    if (!QAccessible::isActive())
        return;
    QAccessibleValueChangeEvent event(&gauge, value);
    QAccessible::updateAccessibility(&event);
}

} // namespace tervale
