#include "TervaleWindow/Style/ListRowPainting.h"

#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Style/FocusRing.h"

#include <QStyle>

namespace tervale {

namespace {

constexpr qreal cornerRadius = 7;
constexpr int ringInset = focusRingWidth + 1;

bool isChosen(const QStyleOptionViewItem& row) {
    return row.state.testFlag(QStyle::State_Selected);
}

/// Whether the keyboard brought the focus here, rather than the pointer.
bool isReachedByKeyboard(const QStyleOptionViewItem& row) {
    const auto flags = QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
    return (row.state & flags) == flags;
}

} // namespace

void paintListRowGround(QPainter& painter, const QRect& ground, const QStyleOptionViewItem& row) {
    painter.setRenderHint(QPainter::Antialiasing);
    if (isChosen(row)) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(Theme::accent());
        painter.drawRoundedRect(ground, cornerRadius, cornerRadius);
    }
    if (!isReachedByKeyboard(row))
        return;
    // Within the row, since the next row begins right behind it.
    paintFocusRing(painter, ground.adjusted(ringInset, ringInset, -ringInset, -ringInset),
                   cornerRadius - ringInset, Colors::of(row.palette),
                   isChosen(row) ? RingGround::accent : RingGround::window);
}

QColor listRowForeground(const QStyleOptionViewItem& row, const QColor& usual) {
    return isChosen(row) ? QColor(Qt::white) : usual;
}

void paintListRowText(QPainter& painter, const QRect& bounds, const QString& text,
                      const QFont& font, const QStyleOptionViewItem& row) {
    painter.setFont(font);
    painter.setPen(listRowForeground(row, Colors::of(row.palette).label));
    const auto alignment = Qt::AlignVCenter | QStyle::visualAlignment(row.direction, Qt::AlignLeft);
    painter.drawText(bounds, static_cast<int>(alignment) | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(text, Qt::ElideRight, bounds.width()));
}

} // namespace tervale
