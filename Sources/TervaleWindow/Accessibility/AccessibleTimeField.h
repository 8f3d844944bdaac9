#pragma once

#include <QAccessibleWidget>

namespace tervale {

class TimeField;

/// A time field with the time that it shows as its value, for where values are read as texts; the
/// toolkit's own interface has an empty one there. Elsewhere that one serves, with the text as what
/// is edited.
class AccessibleTimeField final : public QAccessibleWidget, public QAccessibleValueInterface {
  public:
    explicit AccessibleTimeField(TimeField& field);

    void* interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text kind) const override;
    QStringList actionNames() const override;
    void doAction(const QString& name) override;

    /// As a number, minutes after midnight.
    QVariant currentValue() const override;
    void setCurrentValue(const QVariant&) override {}
    QVariant minimumValue() const override;
    QVariant maximumValue() const override;
    QVariant minimumStepSize() const override;

  private:
    TimeField* field() const;
};

} // namespace tervale
