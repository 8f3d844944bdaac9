#include "TervaleWindow/Profiles/AccessibleCurve.h"

#include "TervaleWindow/Accessibility/AccessibleFactory.h"
#include "TervaleWindow/Profiles/CurveCanvas.h"

#include <QAccessibleWidget>

namespace tervale {

namespace {

/// The value is a text: the whole position of the chosen point.
class AccessibleCurve final : public QAccessibleWidget, public QAccessibleValueInterface {
  public:
    explicit AccessibleCurve(CurveCanvas& described)
        : QAccessibleWidget(&described, QAccessible::Graphic),
          canvas(described) {}

    QString text(QAccessible::Text kind) const override {
        // Desktops that know values only as numbers read the description.
        if (kind == QAccessible::Value || kind == QAccessible::Description)
            return canvas.chosenPosition();
        return QAccessibleWidget::text(kind);
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QVariant currentValue() const override { return canvas.chosenPosition(); }
    void setCurrentValue(const QVariant&) override {}
    QVariant maximumValue() const override { return {}; }
    QVariant minimumValue() const override { return {}; }
    QVariant minimumStepSize() const override { return {}; }

  private:
    const CurveCanvas& canvas;
};

} // namespace

void registerAccessibleCurve() {
    registerAccessible(makeAccessible<CurveCanvas, AccessibleCurve>);
}

void tellCurvePosition(CurveCanvas& canvas) {
    QAccessibleValueChangeEvent value(&canvas, canvas.chosenPosition());
    QAccessible::updateAccessibility(&value);
    QAccessibleEvent description(&canvas, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&description);
}

} // namespace tervale
