#include "TervaleWindow/Controls/FigureLabel.h"

#include "TervaleWindow/Appearance/FigureText.h"
#include "TervaleWindow/Controls/ControlPainting.h"

#include <QPainter>
#include <QStyle>

#include <cmath>

namespace tervale {

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
    return sizeHint();
}

void FigureLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(isEnabled() ? 1 : disabledOpacity);
    painter.setPen(color(inkOfText, Colors::of(palette())));
    paintFigureText(painter, rect(), QStyle::visualAlignment(layoutDirection(), alignment()),
                    font(), text());
}

} // namespace tervale
