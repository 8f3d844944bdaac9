#include "TervaleWindow/Controls/TabularLineEdit.h"

#include "TervaleWindow/Appearance/TabularText.h"

#include <QInputMethodEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>

namespace tervale {

namespace {

/// The toolkit's distance between a field's contents and its text.
constexpr int textMargin = 2;

void paintPart(QPainter& painter, const QRectF& place, const QFont& font, const QString& part) {
    paintTabularText(painter, place, Qt::AlignLeft | Qt::AlignTop, font, part);
}

} // namespace

TabularLineEdit::TabularLineEdit(QWidget* parent) : QLineEdit(parent) {
    const auto paintAnew = [this] { update(); };
    // The toolkit paints only the places where it has the text.
    connect(this, &QLineEdit::textChanged, this, paintAnew);
    connect(this, &QLineEdit::selectionChanged, this, paintAnew);
    connect(this, &QLineEdit::cursorPositionChanged, this, paintAnew);
}

void TabularLineEdit::inputMethodEvent(QInputMethodEvent* event) {
    composing = !event->preeditString().isEmpty();
    QLineEdit::inputMethodEvent(event);
}

QRectF TabularLineEdit::line() const {
    QStyleOptionFrame option;
    initStyleOption(&option);
    const QRect room = style()
                           ->subElementRect(QStyle::SE_LineEditContents, &option, this)
                           .marginsRemoved(textMargins())
                           .adjusted(textMargin, 0, -textMargin, 0);
    const int height = fontMetrics().height();
    const qreal width = tabularTextWidth(font(), text());
    const Qt::Alignment side = QStyle::visualAlignment(layoutDirection(), alignment());
    qreal left = room.left();
    if (side & Qt::AlignHCenter)
        left += (room.width() - width) / 2;
    else if (side & Qt::AlignRight)
        left += room.width() - width;
    // As the toolkit centres the line of a field.
    const int top = room.top() + (room.height() - height + 1) / 2;
    return {left, static_cast<qreal>(top), width, static_cast<qreal>(height)};
}

void TabularLineEdit::paintEvent(QPaintEvent* event) {
    if (composing || !hasDigitCells(text())) {
        QLineEdit::paintEvent(event);
        return;
    }
    QStyleOptionFrame option;
    initStyleOption(&option);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);
    const int start = hasSelectedText() ? selectionStart() : cursorPosition();
    const int end = hasSelectedText() ? selectionEnd() : start;
    QRectF place = line();
    const qreal right = place.right();
    const qreal selectionLeft = place.left() + tabularTextWidth(font(), text().left(start));
    const qreal selectionRight = place.left() + tabularTextWidth(font(), text().left(end));
    painter.setPen(option.palette.color(QPalette::Text));
    paintPart(painter, place, font(), text().left(start));
    place.setLeft(selectionRight);
    paintPart(painter, place, font(), text().mid(end));
    place.setLeft(selectionLeft);
    place.setRight(selectionRight);
    if (hasSelectedText()) {
        painter.fillRect(place, option.palette.color(QPalette::Highlight));
        painter.setPen(option.palette.color(QPalette::HighlightedText));
        place.setRight(right);
        paintPart(painter, place, font(), text().mid(start, end - start));
    } else if (hasFocus() && !isReadOnly()) {
        const int width = style()->pixelMetric(QStyle::PM_TextCursorWidth, &option, this);
        painter.fillRect(QRectF(selectionLeft, place.top(), width, place.height()),
                         option.palette.color(QPalette::Text));
    }
}

} // namespace tervale
