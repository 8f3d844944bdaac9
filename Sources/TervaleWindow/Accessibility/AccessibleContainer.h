#pragma once

#include <QAccessibleWidget>

namespace tervale {

/// A widget that only holds others, or a whole window. Decoration among them is left out, and a
/// tool tip, which may be markup, is no description.
class AccessibleContainer final : public QAccessibleWidget {
  public:
    explicit AccessibleContainer(QWidget& container);

    QAccessible::Role role() const override;
    QString text(QAccessible::Text kind) const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;

  private:
    QWidgetList parts() const;
};

} // namespace tervale
