#pragma once

#include <QAccessibleWidget>

class QPushButton;

namespace tervale {

/// A button that may open a menu, which is its child then. The action opens the menu and returns;
/// the toolkit's own would keep its caller until the menu is closed.
class AccessibleMenuButton final : public QAccessibleWidget {
  public:
    explicit AccessibleMenuButton(QPushButton& button);

    QAccessible::Role role() const override;
    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QStringList actionNames() const override;
    void doAction(const QString& name) override;

  private:
    QPushButton* button() const;
    void toggleMenu();
};

} // namespace tervale
