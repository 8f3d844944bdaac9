#pragma once

#include <QAccessibleWidget>

class QAbstractButton;

namespace tervale {

class PopUpButton;

/// A button whose every action is a click, so that its owner decides what comes of it; Qt's own
/// interface would toggle a checkable button behind the owner's back.
class AccessibleChoice : public QAccessibleWidget {
  public:
    AccessibleChoice(QAbstractButton* button, QAccessible::Role role);

    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString& name) override;

  private:
    QAbstractButton* button() const;
};

/// A pop-up button with the name that it was given, on every system, and its entry as the value.
class AccessiblePopUp : public QAccessibleWidget {
  public:
    explicit AccessiblePopUp(PopUpButton* button);

    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QStringList actionNames() const override;
    void doAction(const QString& name) override;

  private:
    PopUpButton* button() const;
};

/// Makes Qt hand out these interfaces for the window's controls; more calls do nothing.
void installAccessibleControls();

} // namespace tervale
