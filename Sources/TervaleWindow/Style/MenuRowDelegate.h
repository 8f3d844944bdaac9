#pragma once

#include <QStyledItemDelegate>

class QComboBox;

namespace tervale {

/// Draws the rows of a PopUpButton's list as those of a menu.
class MenuRowDelegate : public QStyledItemDelegate {
    Q_OBJECT

  public:
    explicit MenuRowDelegate(QComboBox* owner);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  private:
    QComboBox* button;
};

} // namespace tervale
