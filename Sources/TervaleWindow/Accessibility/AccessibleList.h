#pragma once

#include "TervaleWindow/Accessibility/AccessibleChildren.h"

#include <QAccessibleWidget>

class QListView;

namespace tervale {

/// A list of which one row can be chosen, be it on its own or the list of a pop-up button. Each row
/// has an action that chooses it as a click does. A row has the focus only while the list has it,
/// and when the focus comes to the list, the row is told after it.
class AccessibleList final : public QAccessibleWidget {
  public:
    explicit AccessibleList(QListView& list);

    QAccessibleInterface* parent() const override;
    QString text(QAccessible::Text kind) const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* focusChild() const override;

  private:
    class RowTeller;

    QListView& list() const;

    /// The list owns it.
    RowTeller* teller;
    mutable AccessibleChildren rows;
};

} // namespace tervale
