#include "TervaleWindow/Profiles/CurveAccessible.h"

#include "TervaleWindow/Profiles/CurveCanvas.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace tervale {

namespace {

/// The value is a text: the whole position of the chosen point.
class CurveAccessible final : public QAccessibleWidget, public QAccessibleValueInterface {
  public:
    explicit CurveAccessible(CurveCanvas* canvas)
        : QAccessibleWidget(canvas, QAccessible::Graphic),
          canvas(canvas) {}

    QString text(QAccessible::Text kind) const override {
        // Desktops that know values only as numbers read the description.
        if (kind == QAccessible::Value || kind == QAccessible::Description)
            return canvas->chosenPosition();
        return QAccessibleWidget::text(kind);
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QVariant currentValue() const override { return canvas->chosenPosition(); }
    void setCurrentValue(const QVariant&) override {}
    QVariant maximumValue() const override { return {}; }
    QVariant minimumValue() const override { return {}; }
    QVariant minimumStepSize() const override { return {}; }

  private:
    CurveCanvas* canvas;
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
    auto* canvas = qobject_cast<CurveCanvas*>(object);
    return canvas ? new CurveAccessible(canvas) : nullptr;
}

} // namespace

void installCurveAccessibility() {
    // A factory that is there already is not installed again.
    QAccessible::installFactory(makeAccessible);
}

void tellCurvePosition(CurveCanvas& canvas) {
    QAccessibleValueChangeEvent value(&canvas, canvas.chosenPosition());
    QAccessible::updateAccessibility(&value);
    QAccessibleEvent description(&canvas, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&description);
}

} // namespace tervale
