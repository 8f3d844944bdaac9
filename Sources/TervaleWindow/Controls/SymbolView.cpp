#include "TervaleWindow/Controls/SymbolView.h"

#include "TervaleWindow/Controls/Decoration.h"
#include "TervaleWindow/Style/ControlPainting.h"

#include <QPainter>

namespace tervale {

SymbolView::SymbolView(Symbol symbol, int side, Foreground wanted, QWidget* parent)
    : QWidget(parent),
      drawing(symbol),
      foreground(wanted) {
    setFixedSize(side, side);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    markAsDecoration(*this);
}

void SymbolView::setSymbol(Symbol symbol) {
    drawing = symbol;
    update();
}

void SymbolView::setForeground(const Foreground& wanted) {
    if (wanted == foreground)
        return;
    foreground = wanted;
    update();
}

void SymbolView::setWeight(qreal weight) {
    weightOfLines = weight;
    update();
}

void SymbolView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(isEnabled() ? 1 : disabledOpacity);
    paintSymbol(painter, drawing, rect(), color(foreground, Colors::of(palette())), weightOfLines);
}

} // namespace tervale
