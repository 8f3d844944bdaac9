#include "TervaleWindow/Controls/TabularLabel.h"

#include "TervaleWindow/Appearance/TabularText.h"
#include "TervaleWindow/Style/ControlPainting.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace tervale {

namespace {
/// The width that a label which shortens its text asks for, in logical pixels.
constexpr int least = 24;
} // namespace

TabularLabel::TabularLabel(const QFont& font, Foreground wanted, QWidget* parent)
    : QLabel(parent),
      foreground(wanted) {
    setTextFormat(Qt::PlainText);
    setFont(font);
}

void TabularLabel::setForeground(const Foreground& wanted) {
    if (wanted == foreground)
        return;
    foreground = wanted;
    update();
}

void TabularLabel::setLineHeight(int height) {
    lineHeight = height;
    updateGeometry();
}

QSize TabularLabel::sizeHint() const {
    return {static_cast<int>(std::ceil(tabularTextWidth(font(), text()))),
            lineHeight > 0 ? lineHeight : fontMetrics().height()};
}

QSize TabularLabel::minimumSizeHint() const {
    const QSize natural = sizeHint();
    return {whenTooWide == Overflow::demand ? natural.width() : std::min(natural.width(), least),
            natural.height()};
}

void TabularLabel::setOverflow(Overflow overflow) {
    whenTooWide = overflow;
    updateGeometry();
}

bool TabularLabel::isElided() const {
    return tabularTextWidth(font(), text()) > width();
}

bool TabularLabel::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || !isElided())
        return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
    return true;
}

void TabularLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(isEnabled() ? 1 : disabledOpacity);
    painter.setPen(color(foreground, Colors::of(palette())));
    paintTabularText(
        painter, rect(), QStyle::visualAlignment(layoutDirection(), alignment()), font(),
        isElided() ? fontMetrics().elidedText(text(), Qt::ElideRight, width()) : text());
}

} // namespace tervale
