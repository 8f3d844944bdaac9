#include "TervaleWindow/Shell/SidebarRowDelegate.h"

#include "TervaleWindow/Appearance/Fonts.h"
#include "TervaleWindow/Appearance/Symbol.h"
#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Style/ListRowPainting.h"

#include <QPainter>

namespace tervale {

namespace {

constexpr int rowHeight = 32;
constexpr int symbolSize = 16;

struct RowLayout {
    QRect ground;
    QRect symbol;
    QRect text;
};

RowLayout layoutOf(const QRect& row, Qt::LayoutDirection direction) {
    const QRect ground = row.adjusted(10, 1, -10, -1);
    const QRect symbol(ground.left() + 8, ground.center().y() - symbolSize / 2 + 1, symbolSize,
                       symbolSize);
    const QRect text(symbol.right() + 10, ground.top(), ground.right() - symbol.right() - 17,
                     ground.height());
    return {ground, QStyle::visualRect(direction, ground, symbol),
            QStyle::visualRect(direction, ground, text)};
}

} // namespace

void SidebarRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const {
    const RowLayout layout = layoutOf(option.rect, option.direction);
    painter->save();
    paintListRowGround(*painter, layout.ground, option);
    paintSymbol(*painter, static_cast<Symbol>(index.data(symbolRole).toInt()), layout.symbol,
                listRowForeground(option, Theme::accent()));
    paintListRowText(*painter, layout.text, index.data(Qt::DisplayRole).toString(),
                     systemFont(fontSize::body, QFont::Medium), option);
    painter->restore();
}

QSize SidebarRowDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
    return {0, rowHeight};
}

} // namespace tervale
