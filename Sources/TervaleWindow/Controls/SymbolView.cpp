#include "TervaleWindow/Controls/SymbolView.h"

#include "TervaleWindow/Style/ControlPainting.h"

#include <QPainter>

namespace tervale {

SymbolView::SymbolView(Symbol symbol, int side, Ink ink, QWidget* parent)
    : QWidget(parent),
      drawing(symbol),
      inkOfSymbol(ink) {
    setFixedSize(side, side);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void SymbolView::setSymbol(Symbol symbol) {
    drawing = symbol;
    update();
}

void SymbolView::setInk(const Ink& ink) {
    if (ink == inkOfSymbol)
        return;
    inkOfSymbol = ink;
    update();
}

void SymbolView::setWeight(qreal weight) {
    weightOfLines = weight;
    update();
}

void SymbolView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(isEnabled() ? 1 : disabledOpacity);
    paintSymbol(painter, drawing, rect(), color(inkOfSymbol, Colors::of(palette())), weightOfLines);
}

} // namespace tervale
