#pragma once

#include <QAccessibleWidget>

namespace tervale {

class TimeField;

/// A time field with the time that it shows as its value and as the text that is edited. The
/// toolkit's own interface knows a date for a value, which nobody can read or step.
class AccessibleTimeField final : public QAccessibleWidget, public QAccessibleValueInterface {
  public:
    explicit AccessibleTimeField(TimeField& field);

    void* interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text kind) const override;
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QStringList actionNames() const override;
    void doAction(const QString& name) override;

    /// As a number, minutes after midnight.
    QVariant currentValue() const override;
    void setCurrentValue(const QVariant& value) override;
    QVariant minimumValue() const override;
    QVariant maximumValue() const override;
    QVariant minimumStepSize() const override;

  private:
    TimeField* field() const;
};

} // namespace tervale
