#pragma once

#include <QAccessibleWidget>

class QAbstractButton;

namespace tervale {

/// A button whose every action is a click, so that its owner decides what comes of it; Qt's own
/// interface would toggle a checkable button behind the owner's back.
class AccessibleChoice : public QAccessibleWidget {
  public:
    AccessibleChoice(QAbstractButton& button, QAccessible::Role role);

    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString& name) override;

  private:
    QAbstractButton* button() const;
};

/// One of several choices.
struct AccessibleRadioButton final : AccessibleChoice {
    explicit AccessibleRadioButton(QAbstractButton& button)
        : AccessibleChoice(button, QAccessible::RadioButton) {}
};

/// On or off.
struct AccessibleSwitch final : AccessibleChoice {
    explicit AccessibleSwitch(QAbstractButton& button)
        : AccessibleChoice(button, QAccessible::CheckBox) {}
};

} // namespace tervale
