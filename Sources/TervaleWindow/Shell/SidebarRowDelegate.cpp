#include "TervaleWindow/Shell/SidebarRowDelegate.h"

#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Appearance/Fonts.h"
#include "TervaleWindow/Appearance/Symbol.h"
#include "TervaleWindow/Appearance/Theme.h"

#include <QPainter>
#include <QTextOption>

namespace tervale {

namespace {

constexpr int rowHeight = 32;
constexpr int symbolSize = 16;
constexpr qreal cornerRadius = 7;

struct RowLayout {
    QRectF ground;
    QRectF symbol;
    QRectF text;
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

/// Within the row, since the next row begins right behind it.
void paintFocus(QPainter& painter, const QRectF& ground) {
    QColor ring(Qt::white);
    ring.setAlphaF(0.8f);
    painter.setPen(QPen(ring, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(ground.adjusted(2, 2, -2, -2), cornerRadius - 2, cornerRadius - 2);
}

} // namespace

void SidebarRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const {
    const RowLayout layout = layoutOf(option.rect, option.direction);
    const Colors colors = Colors::of(option.palette);
    const bool chosen = option.state.testFlag(QStyle::State_Selected);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (chosen) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(Theme::accent());
        painter->drawRoundedRect(layout.ground, cornerRadius, cornerRadius);
    }
    const auto keyboardFocus = QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
    if ((option.state & keyboardFocus) == keyboardFocus)
        paintFocus(*painter, layout.ground);
    paintSymbol(*painter, static_cast<Symbol>(index.data(symbolRole).toInt()), layout.symbol,
                chosen ? QColor(Qt::white) : Theme::accent());
    painter->setFont(systemFont(fontSize::body, QFont::Medium));
    painter->setPen(chosen ? QColor(Qt::white) : colors.label);
    QTextOption text(Qt::AlignVCenter | QStyle::visualAlignment(option.direction, Qt::AlignLeft));
    text.setWrapMode(QTextOption::NoWrap);
    painter->drawText(layout.text, index.data(Qt::DisplayRole).toString(), text);
    painter->restore();
}

QSize SidebarRowDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
    return {0, rowHeight};
}

} // namespace tervale
