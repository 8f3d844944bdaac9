#pragma once

#include <QAccessibleWidget>

namespace tervale {

class TimeField;

/// A time field with the time that it shows as its value; the toolkit's own interface has none. Its
/// text is edited through the field within.
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
