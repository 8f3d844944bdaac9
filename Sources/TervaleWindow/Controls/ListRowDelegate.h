#pragma once

#include <QFont>
#include <QStyledItemDelegate>

namespace tervale {

/// What distinguishes one list's rows from another's, in logical pixels.
struct ListRowStyle {
    int height;
    /// Between a row's ground and the next row.
    int gapBelow;
    /// From the ground's sides to what stands on it.
    int padding;
    /// Of rows that are not chosen.
    QFont::Weight weight;
};

/// Draws the rows of a list: perhaps a symbol, a text, perhaps a mark at the end; on the accent
/// colour when the row is chosen, with a ring while the keyboard is at it. A text that has to be
/// shortened is its row's tool tip.
class ListRowDelegate final : public QStyledItemDelegate {
    Q_OBJECT

  public:
    /// In which roles a row keeps its `Symbol` and the one that marks it, as ints; none without.
    static constexpr int symbolRole = Qt::UserRole;
    static constexpr int markRole = Qt::UserRole + 1;

    explicit ListRowDelegate(const ListRowStyle& style, QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

  private:
    struct Layout {
        QRect ground;
        QRect symbol;
        QRect text;
        QRect mark;
    };

    Layout layoutOf(const QStyleOptionViewItem& option, const QModelIndex& index) const;
    QFont fontOf(const QStyleOptionViewItem& option) const;

    ListRowStyle style;
};

} // namespace tervale
