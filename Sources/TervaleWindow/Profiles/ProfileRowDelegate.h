#pragma once

#include <QStyledItemDelegate>

namespace tervale {

/// Draws the rows of the list of profiles: a name, shortened where it is too long, and a mark on
/// those with problems. A name that is shortened is its row's tool tip.
class ProfileRowDelegate final : public QStyledItemDelegate {
    Q_OBJECT

  public:
    static constexpr int rowHeight = 33;

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
};

} // namespace tervale
