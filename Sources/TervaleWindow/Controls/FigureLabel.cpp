#include "TervaleWindow/Controls/FigureLabel.h"

#include "TervaleWindow/Appearance/FigureText.h"
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

FigureLabel::FigureLabel(const QFont& font, Ink ink, QWidget* parent)
    : QLabel(parent),
      inkOfText(ink) {
    setTextFormat(Qt::PlainText);
    setFont(font);
}

void FigureLabel::setInk(const Ink& ink) {
    if (ink == inkOfText)
        return;
    inkOfText = ink;
    update();
}

void FigureLabel::setLineHeight(int height) {
    lineHeight = height;
    updateGeometry();
}

QSize FigureLabel::sizeHint() const {
    return {static_cast<int>(std::ceil(figureTextWidth(font(), text()))),
            lineHeight > 0 ? lineHeight : fontMetrics().height()};
}

QSize FigureLabel::minimumSizeHint() const {
    const QSize natural = sizeHint();
    return {whenTooWide == Overflow::demand ? natural.width() : std::min(natural.width(), least),
            natural.height()};
}

void FigureLabel::setOverflow(Overflow overflow) {
    whenTooWide = overflow;
    updateGeometry();
}

bool FigureLabel::isElided() const {
    return figureTextWidth(font(), text()) > width();
}

bool FigureLabel::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || !isElided())
        return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
    return true;
}

void FigureLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(isEnabled() ? 1 : disabledOpacity);
    painter.setPen(color(inkOfText, Colors::of(palette())));
    paintFigureText(
        painter, rect(), QStyle::visualAlignment(layoutDirection(), alignment()), font(),
        isElided() ? fontMetrics().elidedText(text(), Qt::ElideRight, width()) : text());
}

} // namespace tervale
