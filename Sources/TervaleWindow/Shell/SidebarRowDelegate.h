#pragma once

#include <QStyledItemDelegate>

namespace tervale {

/// Paints a row of the sidebar: a symbol and a title, on the accent colour when it is chosen.
class SidebarRowDelegate final : public QStyledItemDelegate {
    Q_OBJECT

  public:
    /// In which role of its item a row keeps its `Symbol`, as an int.
    static constexpr int symbolRole = Qt::UserRole;

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace tervale
