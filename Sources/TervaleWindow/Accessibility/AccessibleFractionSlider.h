#pragma once

#include <QAccessibleWidget>

namespace tervale {

class FractionSlider;

/// A FractionSlider as assistive technology sees it: a value from 0 to 100 percent. Each change is
/// a gesture of its own.
class AccessibleFractionSlider : public QAccessibleWidget, public QAccessibleValueInterface {
  public:
    explicit AccessibleFractionSlider(FractionSlider& slider);

    void* interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text kind) const override;

    QVariant currentValue() const override;
    void setCurrentValue(const QVariant& value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override;

    QStringList actionNames() const override;
    void doAction(const QString& name) override;

  private:
    FractionSlider* slider() const;
};

} // namespace tervale
