#include "TervaleWindow/Profiles/ProfileRowDelegate.h"

#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Appearance/Fonts.h"
#include "TervaleWindow/Appearance/Symbol.h"
#include "TervaleWindow/Profiles/ProfilesListModel.h"
#include "TervaleWindow/Style/ListRowPainting.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace tervale {

namespace {

constexpr int symbolSide = 15;
constexpr int padding = 10;

struct RowLayout {
    QRect ground;
    QRect text;
    QRect symbol;
};

RowLayout layoutOf(const QRect& row, bool marked, Qt::LayoutDirection direction) {
    const QRect ground = row.adjusted(padding, 1, -padding, 0);
    const QRect inside = ground.adjusted(padding, 0, -padding, 0);
    const QRect symbol(inside.right() + 1 - symbolSide, ground.center().y() - symbolSide / 2,
                       symbolSide, symbolSide);
    const QRect text = marked ? inside.adjusted(0, 0, -symbolSide - padding, 0) : inside;
    return {ground, QStyle::visualRect(direction, ground, text),
            QStyle::visualRect(direction, ground, symbol)};
}

bool isMarked(const QModelIndex& index) {
    return index.data(ProfilesListModel::markedRole).toBool();
}

QFont fontOf(const QStyleOptionViewItem& option) {
    const bool chosen = option.state.testFlag(QStyle::State_Selected);
    return systemFont(fontSize::body, chosen ? QFont::Medium : QFont::Normal);
}

} // namespace

void ProfileRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const {
    const bool marked = isMarked(index);
    const RowLayout layout = layoutOf(option.rect, marked, option.direction);
    painter->save();
    paintListRowGround(*painter, layout.ground, option);
    if (marked)
        paintSymbol(*painter, Symbol::exclamationTriangleFill, layout.symbol,
                    listRowForeground(option, Colors::of(option.palette).warning));
    paintListRowText(*painter, layout.text, index.data().toString(), fontOf(option), option);
    painter->restore();
}

QSize ProfileRowDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
    return {0, rowHeight};
}

bool ProfileRowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                   const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const bool marked = isMarked(index);
    const int room = layoutOf(option.rect, marked, option.direction).text.width();
    const QString name = index.data().toString();
    const bool cut = QFontMetrics(fontOf(option)).horizontalAdvance(name) > room;
    // With what the mark means.
    const QString whole = index.data(Qt::AccessibleTextRole).toString();
    // As rich text a tool tip breaks its lines; names are no markup.
    QToolTip::showText(
        event->globalPos(),
        cut || marked ? QStringLiteral("<p>%1</p>").arg(whole.toHtmlEscaped()) : QString(), view);
    return true;
}

} // namespace tervale
