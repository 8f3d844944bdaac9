#include "TervaleWindow/Controls/ListRowDelegate.h"

#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Appearance/Fonts.h"
#include "TervaleWindow/Appearance/Symbol.h"
#include "TervaleWindow/Appearance/Theme.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace tervale {

namespace {

constexpr int sides = 10;
constexpr int gapAbove = 1;
constexpr int symbolSide = 16;
constexpr int symbolGap = 9;
constexpr int markSide = 15;
constexpr int markGap = 10;
constexpr qreal cornerRadius = 7;

QRect square(int left, const QRect& ground, int side) {
    return {left, ground.top() + (ground.height() - side) / 2, side, side};
}

Symbol symbolIn(const QModelIndex& index, int role) {
    return static_cast<Symbol>(index.data(role).toInt());
}

/// Within the row, since the next row begins right behind it.
void paintRing(QPainter& painter, const QRectF& ground, const QColor& color) {
    painter.setPen(QPen(color, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(ground.adjusted(2, 2, -2, -2), cornerRadius - 2, cornerRadius - 2);
}

bool hasKeyboard(const QStyleOptionViewItem& option) {
    const auto both = QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
    return (option.state & both) == both;
}

QColor ringColor(bool chosen) {
    QColor color = chosen ? QColor(Qt::white) : Theme::accent();
    color.setAlphaF(0.8f);
    return color;
}

} // namespace

ListRowDelegate::ListRowDelegate(const ListRowStyle& rowStyle, QObject* parent)
    : QStyledItemDelegate(parent),
      style(rowStyle) {}

ListRowDelegate::Layout ListRowDelegate::layoutOf(const QStyleOptionViewItem& option,
                                                  const QModelIndex& index) const {
    const QRect ground = option.rect.adjusted(sides, gapAbove, -sides, -style.gapBelow);
    QRect text = ground.adjusted(style.padding, 0, -style.padding, 0);
    const QRect symbol = square(text.left(), ground, symbolSide);
    const QRect mark = square(text.right() + 1 - markSide, ground, markSide);
    if (index.data(symbolRole).isValid())
        text.setLeft(symbol.right() + 1 + symbolGap);
    if (index.data(markRole).isValid())
        text.setRight(mark.left() - 1 - markGap);
    const auto visual = [&](const QRect& part) {
        return QStyle::visualRect(option.direction, ground, part);
    };
    return {ground, visual(symbol), visual(text), visual(mark)};
}

QFont ListRowDelegate::fontOf(const QStyleOptionViewItem& option) const {
    const bool chosen = option.state.testFlag(QStyle::State_Selected);
    return systemFont(fontSize::body, chosen ? QFont::Medium : style.weight);
}

void ListRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
    const bool chosen = option.state.testFlag(QStyle::State_Selected);
    const Layout layout = layoutOf(option, index);
    const Colors colors = Colors::of(option.palette);
    const auto ink = [chosen](const QColor& usual) { return chosen ? QColor(Qt::white) : usual; };
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (chosen) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(Theme::accent());
        painter->drawRoundedRect(layout.ground, cornerRadius, cornerRadius);
    }
    if (hasKeyboard(option))
        paintRing(*painter, layout.ground, ringColor(chosen));
    if (index.data(symbolRole).isValid())
        paintSymbol(*painter, symbolIn(index, symbolRole), layout.symbol, ink(Theme::accent()));
    if (index.data(markRole).isValid())
        paintSymbol(*painter, symbolIn(index, markRole), layout.mark, ink(colors.warning));
    painter->setFont(fontOf(option));
    painter->setPen(ink(colors.label));
    const QString text = painter->fontMetrics().elidedText(index.data().toString(), Qt::ElideRight,
                                                           layout.text.width());
    painter->drawText(
        layout.text,
        int(Qt::AlignVCenter | QStyle::visualAlignment(option.direction, Qt::AlignLeft)) |
            Qt::TextSingleLine,
        text);
    painter->restore();
}

QSize ListRowDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
    return {0, style.height};
}

bool ListRowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QString text = index.data().toString();
    const int room = layoutOf(option, index).text.width();
    const bool cut = QFontMetrics(fontOf(option)).horizontalAdvance(text) > room;
    // As rich text a tool tip breaks its lines; names are no markup.
    QToolTip::showText(event->globalPos(),
                       cut ? QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped()) : QString(),
                       view);
    return true;
}

} // namespace tervale
